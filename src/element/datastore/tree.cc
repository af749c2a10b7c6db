#include "element/datastore/tree.h"

#include <fmt/format.h>

#include <algorithm>

#include "element/datastore/path.h"

namespace element {
namespace {

template <typename Nodes>
auto place_of_child(Nodes &children, const SchemaNode &schema) {
  return std::lower_bound(children.begin(), children.end(), schema.position,
                          [](const Node &node, std::size_t position) { return node.schema->position < position; });
}

template <typename Nodes>
auto place_of_entry(Nodes &entries, const std::vector<Value> &keys) {
  return std::lower_bound(
      entries.begin(), entries.end(), keys,
      [](const Node &entry, const std::vector<Value> &wanted) { return compare_keys(entry.keys, wanted) < 0; });
}

Node &descend(Node &root, const Path &path) {
  Node *node = &root;
  for (const PathStep &step : path) {
    node = &child(*node, *step.schema);
    if (!step.keys.empty()) node = &put_entry(*node, step.keys);
  }
  return *node;
}

const Node *follow(const Node &root, const Path &path) {
  const Node *node = &root;
  for (const PathStep &step : path) {
    node = node->find(*step.schema);
    if (node != nullptr && !step.keys.empty()) node = node->find_entry(step.keys);
    if (node == nullptr) return nullptr;
  }
  return node;
}

void require_no_key_leaf(const Path &path) {
  if (path.empty() || path.back().schema->kind != NodeKind::leaf) return;
  const SchemaNode &leaf = *path.back().schema;
  if (leaf.parent->kind == NodeKind::list && leaf.position < leaf.parent->key_count) {
    throw PathError(fmt::format("path \"{}\": \"{}\" is a key; it is set with its entry", to_text(path), leaf.name));
  }
}

void require_entries(const Path &path) {
  for (std::size_t i = 0; i + 1 < path.size(); ++i) {
    const PathStep &step = path[i];
    if (step.schema->kind == NodeKind::list && step.keys.empty()) {
      throw PathError(
          fmt::format("path \"{}\": the keys of \"{}\" are needed to go below it", to_text(path), step.schema->name));
    }
  }
}

void sort_below(Node &node) {
  for (Node &below : node.children) sort_below(below);
  const bool is_list = node.schema->kind == NodeKind::list && !node.is_entry();
  const auto before = [is_list](const Node &a, const Node &b) {
    return is_list ? compare_keys(a.keys, b.keys) < 0 : a.schema->position < b.schema->position;
  };
  if (!std::is_sorted(node.children.begin(), node.children.end(), before)) {
    std::stable_sort(node.children.begin(), node.children.end(), before);
  }
}

}  // namespace

const Node *Node::find(const SchemaNode &child_schema) const {
  const auto place = place_of_child(children, child_schema);
  return place != children.end() && place->schema == &child_schema ? &*place : nullptr;
}

const Node *Node::find_entry(const std::vector<Value> &entry_keys) const {
  const auto place = place_of_entry(children, entry_keys);
  return place != children.end() && compare_keys(place->keys, entry_keys) == 0 ? &*place : nullptr;
}

int compare_keys(const std::vector<Value> &a, const std::vector<Value> &b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (const int order = compare(a[i], b[i]); order != 0) return order;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

Tree::Tree(const Schema &schema) : schema_(&schema) { root_.schema = &schema.root(); }

Node &Tree::put(std::string_view path, Value value) {
  const Path steps = parse_path(*schema_, path);
  require_no_key_leaf(steps);
  require_entries(steps);
  Node &node = descend(root_, steps);
  if (node.schema->kind == NodeKind::leaf) {
    if (node.schema->type == ValueType::empty && std::holds_alternative<std::monostate>(value)) value = Empty{};
    node.value = std::move(value);
  }
  return node;
}

Node &Tree::put_entry(std::string_view list_path, std::vector<Value> keys) {
  const Path steps = parse_path(*schema_, list_path);
  require_entries(steps);
  if (steps.empty() || steps.back().schema->kind != NodeKind::list || !steps.back().keys.empty()) {
    throw PathError(fmt::format("path \"{}\": a list without keys was expected", list_path));
  }
  return element::put_entry(descend(root_, steps), std::move(keys));
}

void Tree::erase(std::string_view path) {
  const Path steps = parse_path(*schema_, path);
  require_no_key_leaf(steps);
  require_entries(steps);
  if (follow(root_, steps) == nullptr || steps.empty()) return;

  Path above = steps;
  const bool is_entry = !steps.back().keys.empty();
  if (is_entry) {
    above.back().keys.clear();
  } else {
    above.pop_back();
  }
  std::vector<Node> &siblings = descend(root_, above).children;
  siblings.erase(is_entry ? place_of_entry(siblings, steps.back().keys)
                          : place_of_child(siblings, *steps.back().schema));
}

const Node *Tree::find(std::string_view path) const {
  const Path steps = parse_path(*schema_, path);
  require_entries(steps);
  return follow(root_, steps);
}

void Tree::sort() { sort_below(root_); }

Node &child(Node &parent, const SchemaNode &child_schema) {
  auto place = place_of_child(parent.children, child_schema);
  if (place != parent.children.end() && place->schema == &child_schema) return *place;
  return *parent.children.insert(place, Node{&child_schema, {}, {}, {}});
}

Node &put_entry(Node &list, std::vector<Value> keys) {
  auto place = place_of_entry(list.children, keys);
  if (place != list.children.end() && compare_keys(place->keys, keys) == 0) return *place;
  return *list.children.insert(place, Node{list.schema, std::move(keys), {}, {}});
}

Node &append_entry(Node &list, std::vector<Value> keys) {
  return list.children.emplace_back(Node{list.schema, std::move(keys), {}, {}});
}

void set_leaf(Node &parent, const SchemaNode &leaf, Value value) { child(parent, leaf).value = std::move(value); }

}  // namespace element
