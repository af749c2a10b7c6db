#ifndef DIAGNOSIS_EXHAUSTIVE_SEARCH_H
#define DIAGNOSIS_EXHAUSTIVE_SEARCH_H

#include <cstdint>

#include "diagnosis/search_context.h"

namespace diagnosis {

/// The number of closed sets of entries, or `most` where there are more.
std::uint64_t count_closed_sets(const Entries &entries, std::uint64_t most);

/// All minimal conflicts of a commit of at most 31 entries: asks about every closed set, smaller ones first, so that
/// what is found is right also where the search ends early. Empty sets are not asked about. The power set in levels is
/// what a commit of a few entries allows; nothing is supposed of the library, monotonicity least of all.
FoundConflicts find_all_by_enumeration(const SearchContext &context);

}  // namespace diagnosis

#endif
