#include "diagnosis/places.h"

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

/// Calls `visit` with every pair of nodes that stand at the same place, null for the one that is missing.
template <typename Visit>
void walk_pairs(const element::Nodes &before, const element::Nodes &after, Visit visit) {
  auto old = before.begin();
  auto now = after.begin();
  while (old != before.end() || now != after.end()) {
    const bool old_is_next = now == after.end() || (old != before.end() && order(*old, *now) <= 0);
    const bool now_is_next = old == before.end() || (now != after.end() && order(*now, *old) <= 0);
    visit(old_is_next ? &*old : nullptr, now_is_next ? &*now : nullptr);
    if (old_is_next) ++old;
    if (now_is_next) ++now;
  }
}

const element::Nodes &children_of(const Node *node) {
  static const element::Nodes none;
  return node == nullptr ? none : node->children;
}

Node &instance_below(Node &parent, const Place &place) {
  Node &node = element::child(parent, *place.schema);
  return place.is_entry() ? element::append_entry(node, place.node().keys) : node;
}

/// Builds one configuration; a container comes with the first node that it holds.
class Builder {
 public:
  using NodeOf = const Node *(Place::*)(Shape) const;

  Builder(const std::vector<Place> &places, const Shapes &shapes, NodeOf node_of)
      : places_(places), shapes_(shapes), node_of_(node_of) {}

  void add_range(std::size_t begin, std::size_t end, Node &parent) const {
    for (std::size_t number = begin; number < end; number = places_[number].end) add(number, parent);
  }

 private:
  void add(std::size_t number, Node &parent) const {
    const Place &place = places_[number];
    const Node *node = (place.*node_of_)(shapes_[number]);
    if (node == nullptr) return;
    Node &copy = instance_below(parent, place);
    copy.value = node->value;
    add_range(number + 1, place.end, copy);
    if (place.is_bare() && copy.children.empty()) parent.children.pop_back();
  }

  const std::vector<Place> &places_;
  const Shapes &shapes_;
  NodeOf node_of_;
};

}  // namespace

const Node *Place::running_node(Shape shape) const {
  if (shape == Shape::dropped) return nullptr;
  return is_bare() ? &node() : before;
}

const Node *Place::candidate_node(Shape shape) const {
  if (shape == Shape::dropped) return nullptr;
  if (is_bare()) return &node();
  return shape == Shape::running ? before : after;
}

// Schema nodes have no number of their own, and the order of their addresses would change from run to run.
std::size_t kind_of(const Place &place) {
  std::size_t kind = 0;
  for (const element::SchemaNode *node = place.schema; node->parent != nullptr; node = node->parent) {
    kind = kind * 31 + node->tag;
  }
  return kind;
}

Places::Places(const element::Transaction &transaction) : schema_(transaction.candidate.schema()) {
  add_children(&transaction.running.root().children, &transaction.candidate.root().children, 0, true);
}

std::size_t Places::entry_of(std::size_t number) const {
  while (!places_[number].is_entry() && places_[number].parent != number) number = places_[number].parent;
  return number;
}

element::Path Places::path_of(std::size_t number) const {
  element::Path path;
  for (std::size_t step = number;; step = places_[step].parent) {
    path.push_back({places_[step].schema, places_[step].node().keys});
    if (places_[step].parent == step) break;
  }
  std::reverse(path.begin(), path.end());
  return path;
}

void Places::add_children(const Nodes *before, const Nodes *after, std::size_t parent, bool at_top) {
  walk_pairs(*before, *after, [&](const Node *old, const Node *now) {
    const Node &node = now != nullptr ? *now : *old;
    if (node.schema->derived) return;
    if (is_list(node)) {
      add_children(&children_of(old), &children_of(now), parent, at_top);
    } else {
      add(old, now, parent, at_top);
    }
  });
}

void Places::add(const Node *before, const Node *after, std::size_t parent, bool at_top) {
  const std::size_t number = places_.size();
  const element::SchemaNode *schema = (after != nullptr ? after : before)->schema;
  places_.push_back({schema, before, after, at_top ? number : parent, 0});
  add_children(&children_of(before), &children_of(after), number, false);
  places_[number].end = places_.size();
}

element::Tree Places::build(const Shapes &shapes, NodeOf node_of) const {
  element::Tree tree(schema_);
  Builder(places_, shapes, node_of).add_range(0, places_.size(), tree.root());
  return tree;
}

}  // namespace diagnosis
