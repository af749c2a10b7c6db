#ifndef DIAGNOSIS_LIMIT_SEARCH_H
#define DIAGNOSIS_LIMIT_SEARCH_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// What the message's limit counts of the closed set, where it is more than the limit allows by the text: all that it
/// counts, or that of each VPN or port.
std::vector<NumberSet> counted_groups(const SearchContext &context, const NumberSet &set, std::uint32_t message);

/// The conflicts of a limit that the closed set `entries` draws, one for each of its counted groups. What the limit
/// counts in the whole commit is asked about first, and what it counts in the set where the whole does not draw it.
///
/// The limit is a threshold on a sum of weights. An entry is a party if there are others that keep to the limit, and
/// no longer with it. Such others are chosen by the weights, and the library is asked about them with the entry and
/// without. Entries of equal weight, of which all or none are changed by the commit, stand for each other: one of them
/// is asked about. An entry that exceeds the limit alone has a conflict of its own. Empty where the library does not
/// confirm the weights.
FoundConflicts find_exceeded_limits(const SearchContext &context, const NumberSet &entries, std::uint32_t message);

/// Makes one conflict of those of one limit that share a party, with all that it counts.
void join_limits(const SearchContext &context, FoundConflicts &conflicts);

}  // namespace diagnosis

#endif
