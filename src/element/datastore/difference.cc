#include "element/datastore/difference.h"

#include <algorithm>

namespace element {
namespace {

/// The children of a node that may be missing.
const Nodes &children_of(const Node *node) {
  static const Nodes none;
  return node ? node->children : none;
}

/// Walks two sorted rows of nodes at once: on_pair gets the twins, or one node and null where it has no twin. What both
/// rows share has not changed and is passed over.
template <typename Order, typename OnPair>
void merge(const Nodes &before, const Nodes &after, Order order, OnPair on_pair) {
  auto old_node = before.begin();
  auto new_node = after.begin();
  while (old_node != before.end() || new_node != after.end()) {
    if (old_node != before.end() && new_node != after.end() && &*old_node == &*new_node) {
      ++old_node;
      ++new_node;
      continue;
    }
    int side = 0;
    if (old_node == before.end()) {
      side = 1;
    } else if (new_node == after.end()) {
      side = -1;
    } else {
      side = order(*old_node, *new_node);
    }
    on_pair(side <= 0 ? &*old_node : nullptr, side >= 0 ? &*new_node : nullptr);
    if (side <= 0) ++old_node;
    if (side >= 0) ++new_node;
  }
}

int by_position(const Node &a, const Node &b) {
  if (a.schema->position == b.schema->position) return 0;
  return a.schema->position < b.schema->position ? -1 : 1;
}

int by_keys(const Node &a, const Node &b) { return compare_keys(a.keys, b.keys); }

void add_children(Change &change);

/// Takes a change up when it is one: something happened to the node itself or below it.
void add_if_changed(std::vector<Change> &changes, Change &&change) {
  if (change.kind != ChangeKind::below || !change.children.empty()) changes.push_back(std::move(change));
}

void add_leaf(std::vector<Change> &changes, Change &&leaf) {
  if (!leaf.after) {
    leaf.kind = ChangeKind::deleted;
  } else if (!leaf.before) {
    leaf.kind = leaf.schema->type == ValueType::empty ? ChangeKind::created : ChangeKind::value_set;
  } else if (compare(leaf.before->value, leaf.after->value) != 0) {
    leaf.kind = ChangeKind::value_set;
  }
  add_if_changed(changes, std::move(leaf));
}

/// A list entry or presence container: it comes, goes, or stays with a change below it.
void add_existing(std::vector<Change> &changes, Change &&change, ChangeKind kind_of_a_change_below) {
  if (!change.after) {
    change.kind = ChangeKind::deleted;
    changes.push_back(std::move(change));
    return;
  }
  add_children(change);
  if (!change.before) {
    change.kind = ChangeKind::created;
  } else if (!change.children.empty()) {
    change.kind = kind_of_a_change_below;
  }
  add_if_changed(changes, std::move(change));
}

void add_list(std::vector<Change> &changes, Change &&list) {
  merge(children_of(list.before), children_of(list.after), by_keys, [&](const Node *before, const Node *after) {
    add_existing(list.children, Change{list.schema, ChangeKind::below, before, after, {}}, ChangeKind::modified);
  });
  add_if_changed(changes, std::move(list));
}

void add_container(std::vector<Change> &changes, Change &&container) {
  if (container.schema->presence) {
    add_existing(changes, std::move(container), ChangeKind::below);
    return;
  }
  add_children(container);
  add_if_changed(changes, std::move(container));
}

void add_node(std::vector<Change> &changes, Change &&change) {
  switch (change.schema->kind) {
    case NodeKind::leaf:
      return add_leaf(changes, std::move(change));
    case NodeKind::list:
      return add_list(changes, std::move(change));
    case NodeKind::container:
      return add_container(changes, std::move(change));
  }
}

void add_children(Change &change) {
  merge(children_of(change.before), children_of(change.after), by_position, [&](const Node *before, const Node *after) {
    const SchemaNode *schema = after ? after->schema : before->schema;
    add_node(change.children, Change{schema, ChangeKind::below, before, after, {}});
  });
}

const Change *find_child(const Change &change, const SchemaNode &schema) {
  const auto found = std::lower_bound(
      change.children.begin(), change.children.end(), schema.position,
      [](const Change &candidate, std::size_t position) { return candidate.schema->position < position; });
  return found != change.children.end() && found->schema == &schema ? &*found : nullptr;
}

const Change *find_entry(const Change &list, const std::vector<Value> &keys) {
  const auto found = std::lower_bound(
      list.children.begin(), list.children.end(), keys,
      [](const Change &entry, const std::vector<Value> &wanted) { return compare_keys(entry.keys(), wanted) < 0; });
  return found != list.children.end() && compare_keys(found->keys(), keys) == 0 ? &*found : nullptr;
}

}  // namespace

bool Change::is_entry() const { return (after ? after : before)->is_entry(); }

const std::vector<Value> &Change::keys() const { return (after ? after : before)->keys; }

Change difference(const Tree &before, const Tree &after) {
  Change root{after.root().schema, ChangeKind::below, &before.root(), &after.root(), {}};
  add_children(root);
  return root;
}

const Change *find_change(const Change &root, const Path &path) {
  const Change *change = &root;
  for (const PathStep &step : path) {
    const bool inside_a_whole_list = change->schema->kind == NodeKind::list && !change->is_entry();
    if (inside_a_whole_list) return nullptr;
    change = find_child(*change, *step.schema);
    if (change && !step.keys.empty()) change = find_entry(*change, step.keys);
    if (!change) return nullptr;
  }
  return change;
}

}  // namespace element
