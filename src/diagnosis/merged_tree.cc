#include "diagnosis/merged_tree.h"

#include <algorithm>
#include <utility>

namespace diagnosis {
namespace {

using element::Node;
using element::NodeKind;
using element::Nodes;
using element::Tree;

bool is_list(const Node &node) { return node.schema->kind == NodeKind::list && !node.is_entry(); }

int order(const Node &a, const Node &b) {
  if (a.is_entry() && b.is_entry()) return element::compare_keys(a.keys, b.keys);
  if (a.schema->position == b.schema->position) return 0;
  return a.schema->position < b.schema->position ? -1 : 1;
}

const Node *node_of(const SharedChild &child) {
  return child.siblings == nullptr ? nullptr : &(*child.siblings)[child.index];
}

/// Calls `visit` with every pair of nodes that stand at the same path; one that is missing is null.
template <typename Visit>
void walk_pairs(const Nodes &before, const Nodes &after, Visit visit) {
  std::size_t old = 0;
  std::size_t now = 0;
  while (old < before.size() || now < after.size()) {
    const int which = old == before.size() ? 1 : now == after.size() ? -1 : order(before[old], after[now]);
    visit(which <= 0 ? SharedChild{&before, old} : SharedChild{},
          which >= 0 ? SharedChild{&after, now} : SharedChild{});
    if (which <= 0) ++old;
    if (which >= 0) ++now;
  }
}

const Nodes &children_of(const Node *node) {
  static const Nodes none;
  return node == nullptr ? none : node->children;
}

Tree without_derived(const Tree &tree) {
  Tree operators = tree;
  Nodes kept;
  for (std::size_t i = 0; i < tree.root().children.size(); ++i) {
    if (!tree.root().children[i].schema->derived) kept.push_back_shared(tree.root().children, i);
  }
  operators.root().children = std::move(kept);
  return operators;
}

Tree sharing(Tree tree, const Tree &other) {
  element::share_equal_subtrees(tree, other);
  return tree;
}

}  // namespace

bool MergedNode::is_thing() const { return is_entry() && schema->name != "dot1q-range"; }

bool MergedNode::is_changed() const {
  if (is_bare()) return false;
  if (before == nullptr || after == nullptr) return true;
  return is_leaf() && before->value != after->value;
}

MergedTree::MergedTree(const element::Transaction &transaction)
    : running_(without_derived(transaction.running)),
      candidate_(sharing(without_derived(transaction.candidate), running_)) {
  add_children(std::as_const(running_).root().children, std::as_const(candidate_).root().children, kNone);
}

element::Path MergedTree::path_of(std::uint32_t number) const {
  element::Path path;
  for (std::uint32_t step = number; step != kNone; step = nodes_[step].parent) {
    path.push_back({nodes_[step].schema, nodes_[step].node().keys});
  }
  std::reverse(path.begin(), path.end());
  return path;
}

void MergedTree::add_children(const Nodes &before, const Nodes &after, std::uint32_t parent) {
  walk_pairs(before, after, [&](const SharedChild &old, const SharedChild &now) {
    const Node *old_node = node_of(old);
    const Node *now_node = node_of(now);
    if (!is_list(now_node != nullptr ? *now_node : *old_node)) return add(old, now, parent);
    const std::uint32_t begin = size();
    add_children(children_of(old_node), children_of(now_node), parent);
    for (std::uint32_t entry = begin; entry < size(); entry = nodes_[entry].end) nodes_[entry].list_end = size();
  });
}

void MergedTree::add(const SharedChild &before, const SharedChild &after, std::uint32_t parent) {
  const std::uint32_t number = size();
  const Node *old = node_of(before);
  const Node *now = node_of(after);
  nodes_.push_back({(now != nullptr ? now : old)->schema, old, now, before, after, parent, 0, 0, 0, kNone, kNone});
  add_children(children_of(old), children_of(now), number);
  nodes_[number].end = size();
}

}  // namespace diagnosis
