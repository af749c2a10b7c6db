#include "element/input/configuration_tree.h"

#include <vector>

namespace element {
namespace {

bool holds_something(const lyd_node &node) {
  if (node.schema->nodetype != LYS_CONTAINER || (node.schema->flags & LYS_PRESENCE) != 0) return true;
  for (const lyd_node *below = lyd_child(&node); below != nullptr; below = below->next) {
    if (holds_something(*below)) return true;
  }
  return false;
}

// The parser has checked the text against the leaf's type.
Value value_of(const lyd_node &data, const SchemaNode &leaf) {
  return value_from_text(leaf, lyd_get_value(&data)).value();
}

std::vector<Value> keys_of(const lyd_node &entry, const SchemaNode &list) {
  std::vector<Value> keys;
  keys.reserve(list.key_count);
  const lyd_node *key = lyd_child(&entry);
  for (std::size_t i = 0; i < list.key_count; ++i, key = key->next) keys.push_back(value_of(*key, *list.children[i]));
  return keys;
}

void add_all(const lyd_node *first, Node &parent);

void add(const lyd_node &data, Node &parent) {
  const SchemaNode &schema = *parent.schema->child(data.schema->name);
  Node &node = child(parent, schema);
  if (schema.kind == NodeKind::leaf) {
    node.value = value_of(data, schema);
  } else if (schema.kind == NodeKind::list) {
    add_all(lyd_child_no_keys(&data), append_entry(node, keys_of(data, schema)));
  } else {
    add_all(lyd_child(&data), node);
  }
}

void add_all(const lyd_node *first, Node &parent) {
  for (const lyd_node *data = first; data != nullptr; data = data->next) {
    if (holds_something(*data)) add(*data, parent);
  }
}

}  // namespace

Tree operators_tree(const Schema &schema, const lyd_node *data) {
  Tree tree(schema);
  add_all(data, tree.root());
  tree.sort();
  return tree;
}

}  // namespace element
