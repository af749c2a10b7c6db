#ifndef DIAGNOSIS_EXHAUSTIVE_SEARCH_H
#define DIAGNOSIS_EXHAUSTIVE_SEARCH_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "diagnosis/search_context.h"

namespace diagnosis {

/// The numbers of at most this many entries fit into a mask.
inline constexpr std::size_t kMostMaskedEntries = 31;

/// The subsets of `universe`, which has at most kMostMaskedEntries entries, that hold with an entry the one of the
/// universe next around it; smaller ones first.
std::vector<NumberSet> closed_sets(const Entries &entries, const NumberSet &universe);

/// The number of these sets, or `most` where there are more. The universe may be of any size.
std::uint64_t count_closed_sets(const Entries &entries, const NumberSet &universe, std::uint64_t most);

/// All minimal conflicts within a closed set of at most kMostMaskedEntries entries: asks about every closed set,
/// smaller ones first, so that what is found is right also where the search ends early. Empty sets are not asked about.
/// The power set in levels is what a commit of a few entries allows; nothing is supposed of the library, monotonicity
/// least of all. Triggers are not told apart. With `is_start` the running configuration's part is committed to an empty
/// element instead: what is in force.
FoundConflicts find_all_by_enumeration(const SearchContext &context, const NumberSet &universe, bool is_start = false);

}  // namespace diagnosis

#endif
