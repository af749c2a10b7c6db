#include "print.h"

#include <stdexcept>

using element::Change;
using element::ChangeKind;
using element::Node;
using element::NodeKind;
using element::Path;
using element::SchemaNode;
using element::Tree;
using element::Value;
using element::ValueType;

namespace {

std::string name_of(const Value &value, const SchemaNode &leaf) {
  if (const auto *enumeration = std::get_if<element::Enumeration>(&value)) {
    for (const auto &[name, number] : leaf.enumerators) {
      if (number == enumeration->number) return name;
    }
  }
  return element::to_text(value);
}

std::string leaf_text(const Path &path, const Value &value) {
  if (std::holds_alternative<element::Empty>(value)) return element::to_text(path);
  return element::to_text(path) + " = " + name_of(value, *path.back().schema);
}

Path step_into(const Path &path, const Node &node) {
  Path below = path;
  if (node.is_entry()) {
    below.back().keys = node.keys;
  } else {
    below.push_back({node.schema, {}});
  }
  return below;
}

void print_node(const Node &node, const Path &path, Lines &lines) {
  if (node.schema->kind == NodeKind::leaf) {
    lines.push_back(leaf_text(path, node.value));
  } else if (node.is_entry() || node.schema->presence) {
    lines.push_back(to_text(path));
  }
  for (const Node &child : node.children) print_node(child, step_into(path, child), lines);
}

void print_change(const Change &change, const Path &path, Lines &lines) {
  switch (change.kind) {
    case ChangeKind::below:
      break;
    case ChangeKind::created:
      lines.push_back("created " + to_text(path));
      break;
    case ChangeKind::deleted:
      lines.push_back("deleted " + to_text(path));
      break;
    case ChangeKind::modified:
      lines.push_back("modified " + to_text(path));
      break;
    case ChangeKind::value_set:
      lines.push_back(leaf_text(path, change.after->value));
      break;
  }
  for (const Change &child : change.children) {
    print_change(child, step_into(path, child.after ? *child.after : *child.before), lines);
  }
}

void put_line(Tree &tree, const std::string &line) {
  const std::size_t equals = line.find(" = ");
  if (equals == std::string::npos) {
    tree.put(line);
    return;
  }
  const std::string path = line.substr(0, equals);
  const SchemaNode &leaf = *element::parse_path(tree.schema(), path).back().schema;
  const auto value = element::value_from_text(leaf, line.substr(equals + 3));
  if (!value) throw std::invalid_argument("no value of its leaf: " + line);
  tree.put(path, *value);
}

}  // namespace

const element::Schema &test_schema() {
  static const element::Schema schema;
  return schema;
}

Tree tree_of(const Lines &lines) {
  Tree tree(test_schema());
  for (const std::string &line : lines) put_line(tree, line);
  tree.sort();
  return tree;
}

Lines print(const Tree &tree, std::string_view at) {
  Lines lines;
  if (const Node *node = tree.find(at)) print_node(*node, element::parse_path(tree.schema(), at), lines);
  return lines;
}

Lines print(const Change &changes, const element::Schema &schema, std::string_view at) {
  const Path path = element::parse_path(schema, at);
  Lines lines;
  if (const Change *change = find_change(changes, path)) print_change(*change, path, lines);
  return lines;
}
