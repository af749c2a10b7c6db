#include "diagnosis/restricted_commit.h"

#include <algorithm>
#include <utility>

namespace diagnosis {
namespace {

using element::Node;

/// Builds one configuration. A container comes with the first node that it holds. The time is in proportion to what is
/// built: siblings that are left out are passed over list by list.
class Builder {
 public:
  Builder(const RestrictedCommit &commit, const Entries &entries, const RevertibleChanges &changes, bool is_candidate)
      : commit_(commit), entries_(entries), tree_(entries.tree()), changes_(changes), is_candidate_(is_candidate) {}

  element::Tree build() {
    element::Tree tree(tree_.schema());
    add_range(0, tree_.size(), tree.root());
    return tree;
  }

 private:
  NodeState state_of(std::uint32_t number) const {
    if (tree_[number].is_thing() && next_thing() != number) return NodeState::omitted;
    const std::uint32_t part = commit_.reverted.empty() ? kNone : changes_.part_of(number);
    return part != kNone && contains(commit_.reverted, part) ? NodeState::reverted : NodeState::applied;
  }

  std::uint32_t next_thing() const {
    return cursor_ < commit_.entries.size() ? entries_[commit_.entries[cursor_]].node : tree_.size();
  }

  void skip_to(std::uint32_t number) {
    while (next_thing() < number) ++cursor_;
  }

  void add_range(std::uint32_t begin, std::uint32_t end, Node &parent) {
    for (std::uint32_t number = begin; number < end;) {
      skip_to(number);
      const MergedNode &node = tree_[number];
      const NodeState state = state_of(number);
      if (state == NodeState::omitted) {
        number = std::min(next_thing(), node.list_end);
        continue;
      }
      add(number, state, parent);
      number = node.end;
    }
  }

  const Node *source(const MergedNode &node, NodeState state) const {
    const Node *own = is_candidate_ && state == NodeState::applied ? node.after : node.before;
    return own == nullptr && node.is_bare() ? &node.node() : own;
  }

  void add(std::uint32_t number, NodeState state, Node &parent) {
    const MergedNode &node = tree_[number];
    const Node *from = source(node, state);
    if (from == nullptr) return;
    element::Nodes &siblings = node.is_entry() ? list_below(node, parent).children : parent.children;
    if (is_whole(number, state)) return share(node, *from, siblings);
    if (node.is_thing()) ++cursor_;
    Node &below = siblings.push_back(Node{node.schema, from->keys, from->value, {}});
    add_range(number + 1, node.end, below);
    if (node.is_bare() && below.children.empty()) parent.children.pop_back();
  }

  /// The node stands in the built configuration with all that one of the two configurations has below it.
  bool is_whole(std::uint32_t number, NodeState state) const {
    const MergedNode &node = tree_[number];
    if (node.is_bare() && (node.before == nullptr) != (node.after == nullptr)) return false;
    if (is_candidate_ && state == NodeState::applied && holds_reverted(number)) return false;
    const std::size_t last = cursor_ + node.things - 1;
    return node.things == 0 ||
           (last < commit_.entries.size() && commit_.entries[last] == node.first_thing + node.things - 1);
  }

  /// A part that is taken back stands below the node, or is that of changes in place of the entry it belongs to.
  bool holds_reverted(std::uint32_t number) const {
    if (commit_.reverted.empty()) return false;
    const std::uint32_t own = tree_[number].entry;
    return has_reverted_in(number, tree_[number].end) ||
           (own != kNone && has_reverted_in(entries_[own].node, entries_[own].node + 1));
  }

  /// A part that is taken back begins in the range of nodes.
  bool has_reverted_in(std::uint32_t begin, std::uint32_t end) const {
    const auto first =
        std::lower_bound(commit_.reverted.begin(), commit_.reverted.end(), begin,
                         [this](std::uint32_t part, std::uint32_t node) { return changes_[part].node < node; });
    return first != commit_.reverted.end() && changes_[*first].node < end;
  }

  void share(const MergedNode &node, const Node &from, element::Nodes &siblings) {
    const SharedChild &place = &from == node.after ? node.after_place : node.before_place;
    siblings.push_back_shared(*place.siblings, place.index);
    cursor_ += node.things;
  }

  // Nodes come in schema order, so that a new child is always the last one.
  static Node &list_below(const MergedNode &node, Node &parent) {
    const bool is_new = parent.children.empty() || std::as_const(parent.children).back().schema != node.schema;
    return is_new ? parent.children.push_back(Node{node.schema, {}, {}, {}}) : parent.children.back();
  }

  const RestrictedCommit &commit_;
  const Entries &entries_;
  const MergedTree &tree_;
  const RevertibleChanges &changes_;
  bool is_candidate_;
  std::size_t cursor_ = 0;  ///< the next entry of the set
};

}  // namespace

element::Tree running_tree(const RestrictedCommit &commit, const Entries &entries, const RevertibleChanges &changes) {
  return Builder(commit, entries, changes, false).build();
}

element::Tree candidate_tree(const RestrictedCommit &commit, const Entries &entries, const RevertibleChanges &changes) {
  return Builder(commit, entries, changes, true).build();
}

std::unique_ptr<element::Transaction> make_transaction(const RestrictedCommit &commit, const Entries &entries,
                                                       const RevertibleChanges &changes,
                                                       element::Projector &projector) {
  element::Tree running = running_tree(commit, entries, changes);
  if (commit.is_start) {
    element::Tree nothing(running.schema());
    return element::make_transaction(std::move(nothing), std::move(running), projector);
  }
  return element::make_transaction(std::move(running), candidate_tree(commit, entries, changes), projector);
}

}  // namespace diagnosis
