#ifndef DIAGNOSIS_LIMIT_SEARCH_H
#define DIAGNOSIS_LIMIT_SEARCH_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// The conflict of a limit that the closed set `entries` draws. Its parties are all that the limit counts in the whole
/// commit, or, where these alone do not draw it, in the set; how many of them are too many is asked. Where the counted
/// do not draw it without something that makes the library look, that is the trigger.
FoundConflict find_exceeded_limit(const SearchContext &context, const NumberSet &entries, std::uint32_t message);

/// Makes one conflict of those of one limit that share a party, with all that it counts.
void join_limits(const SearchContext &context, FoundConflicts &conflicts);

}  // namespace diagnosis

#endif
