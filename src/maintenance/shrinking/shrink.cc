#include "maintenance/shrinking/shrink.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "maintenance/shrinking/configuration_nodes.h"
#include "maintenance/shrinking/ddmin.h"

namespace maintenance {
namespace {

using Paths = std::vector<element::Path>;

/// The items that are in `all` and not in `some`, which has them in the same order.
template <typename Item>
std::vector<Item> without(const std::vector<Item> &all, const std::vector<Item> &some) {
  std::vector<Item> rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::back_inserter(rest));
  return rest;
}

std::vector<std::size_t> numbers_below(std::size_t end) {
  std::vector<std::size_t> numbers(end);
  for (std::size_t i = 0; i < end; ++i) numbers[i] = i;
  return numbers;
}

class Shrinker {
 public:
  Shrinker(const Commit &commit, const Reproduces &reproduces, std::size_t most_questions)
      : reproduces_(reproduces), most_questions_(most_questions), shrunk_{commit, count_nodes(commit)} {}

  ShrunkCommit run() {
    shrink_interfaces();
    while (shrink_configurations()) {
    }
    shrink_interfaces();
    shorten_names();
    shrunk_.nodes_after = count_nodes(shrunk_.commit);
    return std::move(shrunk_);
  }

 private:
  bool holds(const Commit &commit) {
    if (shrunk_.questions == most_questions_) {
      shrunk_.is_complete = false;
      return false;
    }
    ++shrunk_.questions;
    return reproduces_(commit);
  }

  /// Makes as many of `count` reductions as the commit bears. `make` makes the one of a number. False where it bears
  /// none.
  bool leave_out(std::size_t count, const std::function<void(Commit &, std::size_t)> &make) {
    const Commit start = shrunk_.commit;
    const std::vector<std::size_t> all = numbers_below(count);
    const auto without_all_but = [&](const std::vector<std::size_t> &kept) {
      Commit commit = start;
      for (const std::size_t number : without(all, kept)) make(commit, number);
      return commit;
    };
    const std::vector<std::size_t> kept = ddmin(all, [&](const auto &part) { return holds(without_all_but(part)); });
    if (kept.size() == count) return false;
    shrunk_.commit = without_all_but(kept);
    ++version_;
    return true;
  }

  /// Runs a step, unless neither the step when it last ran nor any step since then made the commit smaller: it would
  /// ask the same again. True where it made the commit smaller.
  template <typename Step>
  bool do_unless_done(std::size_t number, const Step &step) {
    const auto done = done_.find(number);
    if (done != done_.end() && done->second == version_) return false;
    const bool is_smaller = step();
    if (!is_smaller) done_[number] = version_;
    return is_smaller;
  }

  /// Runs every step once. False where the commit stays as it is.
  bool shrink_configurations() {
    bool is_smaller = false;
    for (std::size_t depth = 0;; ++depth) {
      const std::vector<CommitNode> nodes = nodes_at(shrunk_.commit, depth);
      if (nodes.empty()) break;
      is_smaller |= do_unless_done(kFirstDepth + depth, [&] { return leave_out_nodes(nodes); });
    }
    is_smaller |= do_unless_done(kTakeBack, [this] { return take_changes_back(); });
    is_smaller |= do_unless_done(kMakeBefore, [this] { return make_changes_before(); });
    return is_smaller;
  }

  bool leave_out_nodes(const std::vector<CommitNode> &nodes) {
    return leave_out(nodes.size(), [&nodes](Commit &commit, std::size_t number) {
      erase_node(commit.running, nodes[number].path);
      erase_node(commit.candidate, nodes[number].path);
    });
  }

  bool take_changes_back() {
    const Paths changes = outermost_changes(shrunk_.commit);
    return leave_out(changes.size(), [&changes](Commit &commit, std::size_t number) {
      copy_node(commit.candidate, commit.running, changes[number]);
    });
  }

  bool make_changes_before() {
    const Paths changes = outermost_changes(shrunk_.commit);
    return leave_out(changes.size(), [&changes](Commit &commit, std::size_t number) {
      copy_node(commit.running, commit.candidate, changes[number]);
    });
  }

  /// Takes interfaces from the element. One that a configuration names stays: without it, the name would be a fault.
  void shrink_interfaces() {
    const element::Profile &profile = *shrunk_.commit.profile;
    const std::vector<std::string> names = names_of(shrunk_.commit, NameKind::interface);
    std::vector<std::string> unused;
    for (const element::Interface &interface : profile.interfaces()) {
      if (std::find(names.begin(), names.end(), interface.name) == names.end()) unused.push_back(interface.name);
    }
    const auto with = [&](const std::vector<std::string> &kept) {
      std::vector<element::Interface> interfaces;
      for (const element::Interface &interface : profile.interfaces()) {
        const auto is_it = [&interface](const std::string &name) { return name == interface.name; };
        const bool is_unused = std::any_of(unused.begin(), unused.end(), is_it);
        if (!is_unused || std::any_of(kept.begin(), kept.end(), is_it)) interfaces.push_back(interface);
      }
      Commit commit = shrunk_.commit;
      commit.profile = std::make_shared<const element::Profile>(profile.card, std::move(interfaces));
      return commit;
    };
    const auto kept = ddmin(unused, [&](const std::vector<std::string> &part) { return holds(with(part)); });
    if (kept.size() == unused.size()) return;
    Commit smaller = with(kept);
    shrunk_.commit = std::move(smaller);
  }

  void shorten_names() {
    shorten_names(NameKind::group, "g");
    shorten_names(NameKind::vpn, "vpn");
    shorten_names(NameKind::interface, "eth");
  }

  void shorten_names(NameKind kind, const char *stem) {
    std::size_t number = 0;
    for (const std::string &name : names_of(shrunk_.commit, kind)) {
      const std::string to = fmt::format("{}{}", stem, ++number);
      if (name.starts_with(stem) || is_used(kind, to)) continue;
      Commit other = renamed(shrunk_.commit, kind, name, to);
      if (holds(other)) shrunk_.commit = std::move(other);
    }
  }

  bool is_used(NameKind kind, const std::string &name) const {
    const std::vector<std::string> names = names_of(shrunk_.commit, kind);
    return std::find(names.begin(), names.end(), name) != names.end() ||
           (kind == NameKind::interface && shrunk_.commit.profile->by_name(name) != nullptr);
  }

  // Steps of a round; those of the depths follow.
  static constexpr std::size_t kTakeBack = 0;
  static constexpr std::size_t kMakeBefore = 1;
  static constexpr std::size_t kFirstDepth = 2;

  const Reproduces &reproduces_;
  const std::size_t most_questions_;
  ShrunkCommit shrunk_;
  std::size_t version_ = 0;                    ///< of the commit: how often something was left out
  std::map<std::size_t, std::size_t> done_{};  ///< step -> version that it left as it was
};

}  // namespace

ShrunkCommit shrink(const Commit &commit, const Reproduces &reproduces, std::size_t most_questions) {
  return Shrinker(commit, reproduces, most_questions).run();
}

}  // namespace maintenance
