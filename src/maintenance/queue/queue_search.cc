#include "maintenance/queue/queue_search.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

#include "element/datastore/difference.h"
#include "element/input/input_error.h"

namespace queue {
namespace {

using Order = std::vector<std::size_t>;

bool is_accepted(const Step &step) { return step.outcome == StepOutcome::accepted; }

/// The first node at which two configurations differ; empty where they are the same.
element::Path first_difference(const element::Tree &a, const element::Tree &b) {
  const element::Change all = element::difference(a, b);
  element::Path path;
  for (const element::Change *change = &all; !change->children.empty();) {
    change = &change->children.front();
    if (change->is_entry()) {
      path.back().keys = change->keys();
    } else {
      path.push_back({change->schema, {}});
    }
  }
  return path;
}

/// Changes that were accepted one after the other, and the configuration after them.
struct Stage {
  element::Tree tree;
  Order order;
  std::vector<Step> steps;

  bool has(std::size_t change) const { return std::find(order.begin(), order.end(), change) != order.end(); }
};

/// The stages that were reached. Two are the same where they have the same changes and the same configuration.
class ReachedStages {
 public:
  bool has(const Order &changes, const element::Tree &tree) const {
    const auto known = trees_.find(sorted(changes));
    return known != trees_.end() && std::any_of(known->second.begin(), known->second.end(), [&tree](const auto &other) {
             return element::difference(other, tree).children.empty();
           });
  }

  void add(const Stage &stage) {
    trees_[sorted(stage.order)].push_back(stage.tree);
    ++count_;
  }

  std::size_t count() const { return count_; }

 private:
  static Order sorted(Order changes) {
    std::sort(changes.begin(), changes.end());
    return changes;
  }

  std::map<Order, std::vector<element::Tree>> trees_;
  std::size_t count_ = 0;
};

class Search {
 public:
  Search(const element::Tree &running, std::size_t changes, StepOracle &oracle, std::size_t most_sets)
      : running_(running), count_(changes), oracle_(oracle), most_sets_(most_sets), best_{running, {}, {}} {}

  Queue run() {
    ask_alone();
    Order order(count_);
    std::iota(order.begin(), order.end(), std::size_t{0});
    go_greedily(order);
    ask_pairs();
    if (!all_go()) go_greedily(by_exclusions());
    if (!all_go()) look_at_all_sets();
    if (all_go()) queue_.proof = Proof::all_go;
    ask_left_out();
    queue_.order = best_.order;
    queue_.steps = best_.steps;
    return std::move(queue_);
  }

 private:
  bool all_go() const { return best_.order.size() == count_; }

  /// Appends the change where it is accepted.
  bool extend(Stage &stage, std::size_t change) {
    std::optional<element::Tree> after;
    Step step = oracle_.ask(stage.tree, change, &after);
    if (!after) return false;
    stage.tree = std::move(*after);
    stage.order.push_back(change);
    stage.steps.push_back(std::move(step));
    return true;
  }

  void keep_if_better(const Stage &stage) {
    if (stage.order.size() > best_.order.size()) best_ = stage;
  }

  void ask_alone() {
    for (std::size_t change = 0; change < count_; ++change) queue_.alone.push_back(oracle_.ask(running_, change));
  }

  /// Goes through the changes again and again, until no further one is accepted.
  void go_greedily(const Order &changes) {
    Stage stage{running_, {}, {}};
    std::size_t before = 0;
    do {
      before = stage.order.size();
      for (const std::size_t change : changes) {
        if (!stage.has(change)) extend(stage, change);
      }
    } while (stage.order.size() != before && stage.order.size() != count_);
    keep_if_better(stage);
  }

  void ask_pairs() {
    const auto accepted = std::count_if(queue_.alone.begin(), queue_.alone.end(), is_accepted);
    const auto others = static_cast<std::ptrdiff_t>(count_) - accepted;
    queue_.pairs_possible = static_cast<std::size_t>(accepted * (accepted - 1) / 2 + accepted * others);
    for (std::size_t a = 0; a < count_; ++a) {
      for (std::size_t b = a + 1; b < count_; ++b) {
        const bool is_possible = is_accepted(queue_.alone[a]) || is_accepted(queue_.alone[b]);
        if (is_possible && !oracle_.has_ended()) ask_pair(a, b);
      }
    }
  }

  void ask_pair(std::size_t a, std::size_t b) {
    Pair pair{PairKind::exclusive, a, b, {}, {}, {}};
    std::optional<element::Tree> ab;
    std::optional<element::Tree> ba;
    if (is_accepted(queue_.alone[a])) pair.second_on_first = ask_second(a, b, ab);
    if (is_accepted(queue_.alone[b])) pair.first_on_second = ask_second(b, a, ba);
    // One of the answers may be missing, for the search may have ended in between.
    if (oracle_.has_ended()) return;
    ++queue_.pairs_asked;
    if (is_of_interest(pair, ab, ba)) queue_.pairs.push_back(std::move(pair));
  }

  Step ask_second(std::size_t first, std::size_t second, std::optional<element::Tree> &after) {
    return oracle_.ask(oracle_.after(running_, first), second, &after);
  }

  /// Sets the pair's kind, and swaps its changes where the second one must go first. False for an independent pair.
  bool is_of_interest(Pair &pair, const std::optional<element::Tree> &ab, const std::optional<element::Tree> &ba) {
    const bool both_alone = is_accepted(queue_.alone[pair.first]) && is_accepted(queue_.alone[pair.second]);
    if (ab && ba) {
      pair.kind = PairKind::order_matters;
      pair.differs = first_difference(*ab, *ba);
      return !pair.differs.empty();
    }
    if (!ab && !ba) return both_alone;
    pair.kind = both_alone ? PairKind::one_order : PairKind::needs;
    if (ba) {
      std::swap(pair.first, pair.second);
      std::swap(pair.second_on_first, pair.first_on_second);
    }
    return true;
  }

  /// The changes by how many others they exclude, fewest first; a change that must go before another stands before it.
  Order by_exclusions() const {
    std::vector<std::size_t> excluded(count_);
    for (const Pair &pair : queue_.pairs) {
      if (pair.kind != PairKind::exclusive) continue;
      ++excluded[pair.first];
      ++excluded[pair.second];
    }
    Order order(count_);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&excluded](std::size_t a, std::size_t b) { return excluded[a] < excluded[b]; });
    Order sorted;
    for (const std::size_t change : order) insert_before_followers(change, sorted);
    return sorted;
  }

  void insert_before_followers(std::size_t change, Order &order) const {
    if (std::find(order.begin(), order.end(), change) != order.end()) return;
    std::size_t at = order.size();
    for (const Pair &pair : queue_.pairs) {
      const auto second = std::find(order.begin(), order.end(), pair.second);
      if (pair.kind == PairKind::one_order && pair.first == change && second != order.end()) {
        at = std::min(at, static_cast<std::size_t>(second - order.begin()));
      }
    }
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(at), change);
  }

  /// Depth first, so that a long order is found early.
  void look_at_all_sets() {
    ReachedStages reached;
    std::vector<Stage> open{{running_, {}, {}}};
    while (!open.empty() && !all_go() && !oracle_.has_ended() && reached.count() < most_sets_) {
      const Stage stage = std::move(open.back());
      open.pop_back();
      for (std::size_t change = count_; change-- > 0;) {
        Stage next = stage;
        if (leads_to_known(stage, change, reached) || !extend(next, change)) continue;
        reached.add(next);
        keep_if_better(next);
        open.push_back(std::move(next));
      }
    }
    if (!open.empty() || oracle_.has_ended()) return;
    queue_.proof = Proof::most_go;
    queue_.sets_asked = reached.count();
  }

  /// Whether the change is part of the stage, cannot be, or leads where another order has led before.
  bool leads_to_known(const Stage &stage, std::size_t change, const ReachedStages &reached) const {
    if (stage.has(change)) return true;
    Order order = stage.order;
    order.push_back(change);
    try {
      return reached.has(order, oracle_.after(stage.tree, change));
    } catch (const element::InputError &) {
      return true;
    }
  }

  void ask_left_out() {
    for (std::size_t change = 0; change < count_; ++change) {
      if (best_.has(change)) continue;
      queue_.left_out.push_back(change);
      queue_.left_out_steps.push_back(oracle_.ask(best_.tree, change));
    }
  }

  const element::Tree &running_;
  std::size_t count_;
  StepOracle &oracle_;
  std::size_t most_sets_;
  Stage best_;
  Queue queue_;
};

}  // namespace

Queue search_queue(const element::Tree &running, std::size_t changes, StepOracle &oracle, std::size_t most_sets) {
  return Search(running, changes, oracle, most_sets).run();
}

}  // namespace queue
