#ifndef DIAGNOSIS_LIMIT_PARTIES_H
#define DIAGNOSIS_LIMIT_PARTIES_H

#include <optional>
#include <vector>

#include "diagnosis/limit.h"

namespace diagnosis {

/// The conflict of those of the shares that take part in exceeding a limit. An entry does if there are others that
/// keep to the limit, and no longer with it: such are chosen by weight, and the library is asked about them with the
/// entry and without. Entries of equal weight, all or none of which the commit changes, stand for each other. Each
/// share keeps to the limit alone. Nothing where the library does not confirm the weights, or the search has ended.
std::optional<FoundConflict> find_limit_parties(const SearchContext &context, std::uint32_t message,
                                                const std::vector<Share> &shares);

/// Counts how many of a limit's parties must go, by asking: the fewest, and how many whichever they are.
void count_too_many(const SearchContext &context, FoundConflict &conflict);

}  // namespace diagnosis

#endif
