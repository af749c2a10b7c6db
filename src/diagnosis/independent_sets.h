#ifndef DIAGNOSIS_INDEPENDENT_SETS_H
#define DIAGNOSIS_INDEPENDENT_SETS_H

#include <cstddef>
#include <functional>
#include <vector>

#include "diagnosis/entries.h"

namespace diagnosis {

/// At most so many of these entries may be together without a known conflict: all but one of a conflict's parties, what
/// a limit allows of those that it counts.
struct Bound {
  NumberSet parties;
  std::size_t most = 0;                ///< the sum of what those that are together weigh
  std::vector<std::size_t> weights{};  ///< of each party; empty: each weighs 1

  std::size_t weight(std::size_t place) const { return weights.empty() ? 1 : weights[place]; }
};

/// What it says of the parties in the set.
Bound within(const Bound &bound, const NumberSet &set);

struct IndependentSets {
  std::vector<NumberSet> sets;  ///< each maximal
  bool is_covering = true;      ///< every two parties that may be together are together in one of the sets
};

/// Sets of the parties that keep to all bounds together with the entries of `kept`, at most `most_sets` of them: a
/// greedy covering array of strength two. The first sets bring each party in. A fault that two parties have with each
/// other, or one with what is no party, is in one of them. Without parties it is one empty set. No further set is made
/// once `is_over` says so.
IndependentSets independent_sets(const std::vector<Bound> &bounds, const NumberSet &kept, std::size_t most_sets,
                                 const std::function<bool()> &is_over = {});

}  // namespace diagnosis

#endif
