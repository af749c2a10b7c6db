#ifndef DIAGNOSIS_SUBSET_SUM_H
#define DIAGNOSIS_SUBSET_SUM_H

#include <cstddef>
#include <optional>
#include <vector>

#include "diagnosis/entries.h"

namespace diagnosis {

/// An entry that takes `weight` of what a limit allows.
struct Share {
  std::uint32_t entry = 0;
  std::size_t weight = 0;  ///< above 0
};

/// Entries of some of the shares, whose weights sum up to a number from `least` to `most`; nothing where no choice
/// does. The shares' entries are ascending. Time and room are in proportion to `most` times the number of different
/// weights (bounded knapsack).
std::optional<NumberSet> subset_of_sum(const std::vector<Share> &shares, std::size_t least, std::size_t most);

}  // namespace diagnosis

#endif
