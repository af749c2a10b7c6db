#include "element/datastore/tree.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "element/datastore/path.h"

namespace element {
namespace {

auto place_of_child(const Nodes &children, const SchemaNode &schema) {
  return std::lower_bound(children.begin(), children.end(), schema.position,
                          [](const Node &node, std::size_t position) { return node.schema->position < position; });
}

auto place_of_entry(const Nodes &entries, const std::vector<Value> &keys) {
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

int compare_siblings(const Node &a, const Node &b) {
  if (a.is_entry() && b.is_entry()) return compare_keys(a.keys, b.keys);
  if (a.schema->position == b.schema->position) return 0;
  return a.schema->position < b.schema->position ? -1 : 1;
}

bool is_before(const Node &a, const Node &b) { return compare_siblings(a, b) < 0; }

bool is_sorted_below(const Node &node) {
  return std::is_sorted(node.children.begin(), node.children.end(), is_before) &&
         std::all_of(node.children.begin(), node.children.end(), is_sorted_below);
}

// What is in order is not written to, so that it stays shared.
void sort_below(Node &node) {
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    if (!is_sorted_below(std::as_const(node.children)[i])) sort_below(node.children[i]);
  }
  node.children.sort(is_before);
}

/// Whether both hold the same; shares what does. Two nodes of one schema and the same keys.
bool share_equal(Node &node, const Node &other) {
  bool is_equal = node.children.size() == other.children.size() && compare(node.value, other.value) == 0;
  std::size_t at = 0;
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    const Node &child = std::as_const(node.children)[i];
    while (at < other.children.size() && compare_siblings(other.children[at], child) < 0) ++at;
    const bool has_twin = at < other.children.size() && compare_siblings(other.children[at], child) == 0;
    if (has_twin && share_equal(node.children[i], other.children[at])) {
      node.children.replace_shared(i, other.children, at);
    } else {
      is_equal = false;
    }
  }
  return is_equal;
}

}  // namespace

Node &Nodes::own(std::shared_ptr<Node> &node) {
  if (node.use_count() > 1) node = std::make_shared<Node>(*node);
  return *node;
}

Node &Nodes::push_back(Node node) { return *row_.emplace_back(std::make_shared<Node>(std::move(node))); }

Nodes::iterator Nodes::insert(const_iterator place, Node node) {
  return iterator(row_.insert(place.base(), std::make_shared<Node>(std::move(node))));
}

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
  if (!steps.back().keys.empty()) {
    above.back().keys.clear();
    return erase_entry(descend(root_, above), steps.back().keys);
  }
  above.pop_back();
  erase_child(descend(root_, above), *steps.back().schema);
}

const Node *Tree::find(std::string_view path) const {
  const Path steps = parse_path(*schema_, path);
  require_entries(steps);
  return follow(root_, steps);
}

void Tree::sort() { sort_below(root_); }

void Tree::sort_list(std::string_view path) {
  const Path steps = parse_path(*schema_, path);
  require_entries(steps);
  if (follow(root_, steps) != nullptr) descend(root_, steps).children.sort(is_before);
}

Node &child(Node &parent, const SchemaNode &child_schema) {
  const auto place = place_of_child(parent.children, child_schema);
  const auto at = static_cast<std::size_t>(place - std::as_const(parent.children).begin());
  if (at < parent.children.size() && place->schema == &child_schema) return parent.children[at];
  return *parent.children.insert(place, Node{&child_schema, {}, {}, {}});
}

Node &put_entry(Node &list, std::vector<Value> keys) {
  const auto place = place_of_entry(list.children, keys);
  const auto at = static_cast<std::size_t>(place - std::as_const(list.children).begin());
  if (at < list.children.size() && compare_keys(place->keys, keys) == 0) return list.children[at];
  return *list.children.insert(place, Node{list.schema, std::move(keys), {}, {}});
}

void erase_child(Node &parent, const SchemaNode &child_schema) {
  const auto place = place_of_child(std::as_const(parent.children), child_schema);
  if (place != std::as_const(parent.children).end() && place->schema == &child_schema) parent.children.erase(place);
}

void erase_entry(Node &list, const std::vector<Value> &keys) {
  const auto place = place_of_entry(std::as_const(list.children), keys);
  const bool is_there = place != std::as_const(list.children).end() && compare_keys(place->keys, keys) == 0;
  if (is_there) list.children.erase(place);
}

Node &append_entry(Node &list, std::vector<Value> keys) {
  return list.children.push_back(Node{list.schema, std::move(keys), {}, {}});
}

void share_equal_subtrees(Tree &tree, const Tree &other) { share_equal(tree.root(), other.root()); }

void set_leaf(Node &parent, const SchemaNode &leaf, Value value) { child(parent, leaf).value = std::move(value); }

}  // namespace element
