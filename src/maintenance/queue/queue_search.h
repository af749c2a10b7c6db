#ifndef MAINTENANCE_QUEUE_QUEUE_SEARCH_H
#define MAINTENANCE_QUEUE_QUEUE_SEARCH_H

#include <cstddef>
#include <vector>

#include "maintenance/queue/step_oracle.h"

namespace queue {

enum class PairKind {
  exclusive,     ///< each is accepted alone, neither on top of the other
  one_order,     ///< each is accepted alone, and one of them on top of the other only
  needs,         ///< the later one is not accepted alone, but on top of the other
  order_matters  ///< both orders are accepted and leave different configurations
};

/// Two changes that depend on each other, as indexes into the list of changes.
struct Pair {
  PairKind kind = PairKind::exclusive;
  std::size_t first = 0;   ///< one_order, needs: the one that goes first; else the smaller index
  std::size_t second = 0;  ///< the other one
  Step second_on_first;
  Step first_on_second;   ///< needs: not asked
  element::Path differs;  ///< order_matters: the first node that differs
};

/// How far a search for an order went.
enum class Proof {
  all_go,   ///< every change is in the order
  most_go,  ///< every set of changes that an accepted order leads to was looked at: none is larger
  none      ///< more may go through: the search ended early
};

struct Queue {
  std::vector<Step> alone;         ///< of each change
  std::vector<Pair> pairs;         ///< those that depend on each other, by `first`, then `second`
  std::size_t pairs_asked = 0;     ///< of pairs_possible
  std::size_t pairs_possible = 0;  ///< pairs of which at least one is accepted alone
  std::vector<std::size_t> order;  ///< each is accepted on what those before it leave
  std::vector<Step> steps;         ///< of `order`
  std::vector<std::size_t> left_out;
  std::vector<Step> left_out_steps;  ///< of `left_out`, behind the whole order
  Proof proof = Proof::none;
  std::size_t sets_asked = 0;  ///< most_go: so many sets of changes were looked at
};

/// Sets that are looked at before the search for a longer order gives up. Eleven changes that all go through in any
/// order have 2,048.
inline constexpr std::size_t kMostSets = 2048;

/// Finds an order in which all or many of the changes go through, one commit after the other. The order that the
/// changes have is tried first, with what is rejected tried again behind what was accepted after it; then those first
/// that exclude the fewest others; then, within the budget, every set. Nothing is concluded from pairs: a third change
/// may remove the conflict between two others.
Queue search_queue(const element::Tree &running, std::size_t changes, StepOracle &oracle,
                   std::size_t most_sets = kMostSets);

}  // namespace queue

#endif
