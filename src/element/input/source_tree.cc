#include "element/input/source_tree.h"

#include <algorithm>

#include "element/datastore/path.h"
#include "element/input/input_text.h"

namespace element {
namespace {

using NodeId = SourceTree::NodeId;

/// The text as value_from_text takes it: the parser takes blanks around a number, and a plus sign.
std::string_view bare(std::string_view text, ValueType type) {
  if (type == ValueType::text) return text;
  text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
  text = text.substr(0, text.find_last_not_of(kBlank) + 1);
  if (text.starts_with('+')) text.remove_prefix(1);
  return text;
}

/// "{k1 k2}", or nothing unless all keys are there.
std::string keys_text(const SourceTree &tree, NodeId node) {
  const SchemaNode &schema = *tree.schema(node);
  std::string keys;
  for (std::size_t i = 0; i < schema.key_count; ++i) {
    const NodeId end = tree.end(node);
    const NodeId leaf = tree.find_from(tree.first_child(node), end, *schema.children[i]);
    if (leaf == end || tree.is_open(leaf)) return "";
    const std::optional<Value> value = key_value(tree, leaf);
    keys += i == 0 ? '{' : ' ';
    keys += quoted_key(value ? to_text(*value) : tree.text(leaf));
  }
  return keys.empty() ? "" : keys + '}';
}

}  // namespace

SourceTree::SourceTree() : nodes_(1), open_(1) {}

NodeId SourceTree::find_from(NodeId child, NodeId end, const SchemaNode &schema) const {
  while (child != end && nodes_[child].schema != &schema) child = this->end(child);
  return child;
}

std::vector<NodeId> SourceTree::way_to(NodeId node) const {
  std::vector<NodeId> way;
  for (NodeId at = root(); at != node;) {
    at = first_child(at);
    while (end(at) <= node) at = end(at);
    way.push_back(at);
  }
  return way;
}

void SourceTree::open(const SchemaNode &schema, std::size_t line) {
  open_.push_back(size());
  Node node;
  node.schema = &schema;
  node.line = static_cast<std::uint32_t>(line);
  nodes_.push_back(node);
}

void SourceTree::set_text(std::string_view text) {
  Node &node = nodes_[open_.back()];
  node.text_begin = texts_.size();
  node.text_size = static_cast<std::uint32_t>(text.size());
  texts_ += text;
}

void SourceTree::close() {
  nodes_[open_.back()].end = size();
  open_.pop_back();
}

std::optional<Value> key_value(const SourceTree &tree, NodeId leaf) {
  const SchemaNode &schema = *tree.schema(leaf);
  return value_from_text(schema, bare(tree.text(leaf), schema.type));
}

std::string path_text(const SourceTree &tree, NodeId node) {
  std::string path;
  for (const NodeId step : tree.way_to(node)) path += '/' + tree.schema(step)->name + keys_text(tree, step);
  return path.empty() ? "/" : path;
}

std::unordered_map<std::string, std::size_t> lines_by_path(const SourceTree &tree) {
  struct Open {
    NodeId end = 0;
    std::size_t path_size = 0;
  };
  std::unordered_map<std::string, std::size_t> lines;
  std::vector<Open> around;
  std::string path;
  for (NodeId node = 1; node < tree.size(); ++node) {
    while (!around.empty() && around.back().end <= node) around.pop_back();
    path.resize(around.empty() ? 0 : around.back().path_size);
    path += '/' + tree.schema(node)->name + keys_text(tree, node);
    lines.emplace(path, tree.line(node));
    around.push_back({tree.end(node), path.size()});
  }
  return lines;
}

}  // namespace element
