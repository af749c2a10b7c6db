#include "maintenance/shrinking/configuration_nodes.h"

#include <algorithm>

#include "diagnosis/merged_tree.h"
#include "element/datastore/transaction.h"
#include "l2vpn/paths.h"

namespace maintenance {
namespace {

using diagnosis::MergedNode;
using diagnosis::MergedTree;
using element::Node;
using element::NodeKind;
using element::Tree;

std::size_t depth_of(const MergedTree &tree, std::uint32_t number) {
  std::size_t depth = 0;
  for (std::uint32_t at = tree[number].parent; at != diagnosis::kNone; at = tree[at].parent) ++depth;
  return depth;
}

bool is_left_empty(const Node &node) {
  const bool is_list = node.schema->kind == NodeKind::list && !node.is_entry();
  const bool is_bare = node.schema->kind == NodeKind::container && !node.schema->presence;
  return (is_list || is_bare) && node.children.empty();
}

void remove_if_empty(Tree &tree, const element::Path &path) {
  const std::string text = element::to_text(path);
  const Node *node = tree.find(text);
  if (node != nullptr && is_left_empty(*node)) tree.erase(text);
}

bool is_group(const element::SchemaNode &list) {
  return list.name == l2vpn::name::vpls_group || list.name == l2vpn::name::vpws_group;
}

bool is_interface(const element::SchemaNode &list) {
  if (list.name == l2vpn::name::access_interface) return true;
  return list.name == l2vpn::name::interface &&
         (list.parent->name == l2vpn::name::vlan || list.parent->name == l2vpn::name::igmp_snooping);
}

bool bears_name(const Node &node, NameKind kind) {
  if (!node.is_entry() || !std::holds_alternative<std::string>(node.keys.front())) return false;
  switch (kind) {
    case NameKind::group:
      return is_group(*node.schema);
    case NameKind::vpn:
      return node.schema->name == l2vpn::name::vpn;
    case NameKind::interface:
      return is_interface(*node.schema);
  }
  return false;
}

void add_names(const Node &node, NameKind kind, std::vector<std::string> &names) {
  if (bears_name(node, kind)) {
    const std::string &name = std::get<std::string>(node.keys.front());
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  for (const Node &child : node.children) add_names(child, kind, names);
}

Node with_name(const Node &node, NameKind kind, std::string_view from, const std::string &to) {
  Node copy;
  copy.schema = node.schema;
  copy.keys = node.keys;
  copy.value = node.value;
  if (bears_name(node, kind) && std::get<std::string>(node.keys.front()) == from) copy.keys.front() = to;
  for (const Node &child : node.children) copy.children.push_back(with_name(child, kind, from, to));
  return copy;
}

Tree with_name(const Tree &tree, NameKind kind, std::string_view from, const std::string &to) {
  Tree copy(tree.schema());
  copy.root() = with_name(tree.root(), kind, from, to);
  copy.sort();
  return copy;
}

}  // namespace

std::vector<CommitNode> nodes_at(const Commit &commit, std::size_t depth) {
  const element::Transaction transaction(commit.running, commit.candidate);
  const MergedTree tree(transaction);
  std::vector<CommitNode> nodes;
  for (std::uint32_t number = 0; number < tree.size(); ++number) {
    const MergedNode &node = tree[number];
    if (depth_of(tree, number) == depth && !(node.is_leaf() && node.schema->mandatory)) {
      nodes.push_back({tree.path_of(number), node.is_changed()});
    }
  }
  return nodes;
}

std::vector<element::Path> outermost_changes(const Commit &commit) {
  const element::Transaction transaction(commit.running, commit.candidate);
  const MergedTree tree(transaction);
  std::vector<element::Path> changes;
  for (std::uint32_t number = 0; number < tree.size();) {
    const bool is_changed = tree[number].is_changed();
    if (is_changed) changes.push_back(tree.path_of(number));
    number = is_changed ? tree[number].end : number + 1;
  }
  return changes;
}

std::size_t count_nodes(const Commit &commit) {
  const element::Transaction transaction(commit.running, commit.candidate);
  const MergedTree tree(transaction);
  std::size_t count = 0;
  for (std::uint32_t number = 0; number < tree.size(); ++number) {
    if (!tree[number].is_bare()) ++count;
  }
  return count;
}

void erase_node(Tree &tree, const element::Path &path) {
  const std::string text = element::to_text(path);
  if (tree.find(text) == nullptr) return;
  tree.erase(text);
  element::Path around = path;
  while (!around.empty()) {
    if (!around.back().keys.empty()) {
      around.back().keys.clear();
      remove_if_empty(tree, around);
    }
    around.pop_back();
    if (!around.empty()) remove_if_empty(tree, around);
  }
}

void copy_node(Tree &to, const Tree &from, const element::Path &path) {
  erase_node(to, path);
  const std::string text = element::to_text(path);
  const Node *node = from.find(text);
  if (node == nullptr) return;
  to.put(text, node->value) = *node;
}

std::vector<std::string> names_of(const Commit &commit, NameKind kind) {
  std::vector<std::string> names;
  add_names(commit.running.root(), kind, names);
  add_names(commit.candidate.root(), kind, names);
  return names;
}

Commit renamed(const Commit &commit, NameKind kind, std::string_view from, const std::string &to) {
  std::vector<element::Interface> interfaces = commit.profile->interfaces();
  for (element::Interface &interface : interfaces) {
    if (kind == NameKind::interface && interface.name == from) interface.name = to;
  }
  return {std::make_shared<const element::Profile>(commit.profile->card, std::move(interfaces)),
          with_name(commit.running, kind, from, to), with_name(commit.candidate, kind, from, to)};
}

}  // namespace maintenance
