#ifndef DIAGNOSIS_LIMIT_SEARCH_H
#define DIAGNOSIS_LIMIT_SEARCH_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// What a limit's message counts of `entries`, which are closed and draw it, and how many of them are too many: the
/// fewest without which the message is gone, by bisection. Those that take most of the limit are left out first.
FoundConflict find_exceeded_limit(const SearchContext &context, const NumberSet &entries, std::uint32_t message);

/// Makes one conflict of those of one limit that share a party, with all that it counts.
void join_limits(const SearchContext &context, FoundConflicts &conflicts);

}  // namespace diagnosis

#endif
