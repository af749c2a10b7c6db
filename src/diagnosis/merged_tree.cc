#include "diagnosis/merged_tree.h"

#include <algorithm>

namespace diagnosis {
namespace {

using element::Node;
using element::NodeKind;

bool is_list(const Node &node) { return node.schema->kind == NodeKind::list && !node.is_entry(); }

int order(const Node &a, const Node &b) {
  if (a.is_entry() && b.is_entry()) return element::compare_keys(a.keys, b.keys);
  if (a.schema->position == b.schema->position) return 0;
  return a.schema->position < b.schema->position ? -1 : 1;
}

/// Calls `visit` with every pair of nodes that stand at the same path, null for the one that is missing.
template <typename Visit>
void walk_pairs(const std::vector<Node> &before, const std::vector<Node> &after, Visit visit) {
  auto old = before.begin();
  auto now = after.begin();
  while (old != before.end() || now != after.end()) {
    const int which = old == before.end() ? 1 : now == after.end() ? -1 : order(*old, *now);
    visit(which <= 0 ? &*old : nullptr, which >= 0 ? &*now : nullptr);
    if (which <= 0) ++old;
    if (which >= 0) ++now;
  }
}

const std::vector<Node> &children_of(const Node *node) {
  static const std::vector<Node> none;
  return node == nullptr ? none : node->children;
}

}  // namespace

bool MergedNode::is_thing() const { return is_entry() && schema->name != "dot1q-range"; }

bool MergedNode::is_changed() const {
  if (is_bare()) return false;
  if (before == nullptr || after == nullptr) return true;
  return is_leaf() && before->value != after->value;
}

MergedTree::MergedTree(const element::Transaction &transaction) : schema_(transaction.candidate.schema()) {
  add_children(&transaction.running.root().children, &transaction.candidate.root().children, kNone);
}

element::Path MergedTree::path_of(std::uint32_t number) const {
  element::Path path;
  for (std::uint32_t step = number; step != kNone; step = nodes_[step].parent) {
    path.push_back({nodes_[step].schema, nodes_[step].node().keys});
  }
  std::reverse(path.begin(), path.end());
  return path;
}

void MergedTree::add_children(const Nodes *before, const Nodes *after, std::uint32_t parent) {
  walk_pairs(*before, *after, [&](const Node *old, const Node *now) {
    const Node &node = now != nullptr ? *now : *old;
    if (node.schema->derived) return;
    if (!is_list(node)) return add(old, now, parent);
    const std::uint32_t begin = size();
    add_children(&children_of(old), &children_of(now), parent);
    for (std::uint32_t entry = begin; entry < size(); entry = nodes_[entry].end) nodes_[entry].list_end = size();
  });
}

void MergedTree::add(const Node *before, const Node *after, std::uint32_t parent) {
  const std::uint32_t number = size();
  const element::SchemaNode *schema = (after != nullptr ? after : before)->schema;
  nodes_.push_back({schema, before, after, parent, 0, 0, kNone});
  add_children(&children_of(before), &children_of(after), number);
  nodes_[number].end = size();
}

}  // namespace diagnosis
