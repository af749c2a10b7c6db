#ifndef DIAGNOSIS_LIMIT_SEARCH_H
#define DIAGNOSIS_LIMIT_SEARCH_H

#include "diagnosis/independent_sets.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// What the message's limit counts of the closed set, where it is more than the limit allows by the text: all that it
/// counts, or that of each VPN or port.
std::vector<NumberSet> counted_groups(const SearchContext &context, const NumberSet &set, std::uint32_t message);

/// The conflicts of a limit that the closed set `entries` draws, one for each of its counted groups. What the limit
/// counts in the whole commit is asked about first, and what it counts in the set where the whole does not draw it.
///
/// An entry that exceeds the limit alone has a conflict of its own. Empty where the library does not confirm what the
/// limit is supposed to count; see find_limit_parties().
FoundConflicts find_exceeded_limits(const SearchContext &context, const NumberSet &entries, std::uint32_t message);

/// Which of a conflict's parties and triggers may be together without it: all but one; of a limit's as much as it
/// allows.
Bound bound_of(const SearchContext &context, const FoundConflict &conflict);

/// Makes one conflict of those of one limit that share a party, with all that it counts.
void join_limits(const SearchContext &context, FoundConflicts &conflicts);

}  // namespace diagnosis

#endif
