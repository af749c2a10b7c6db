#include "element/input/source_lines.h"

#include <algorithm>
#include <string_view>

#include "element/input/source_tree.h"

namespace element {
namespace {

using NodeId = SourceTree::NodeId;

constexpr std::string_view kLineSpace = " \t\r\n";

/// The text as value_from_text takes it: libyang takes blanks around a number, and a plus sign.
std::string_view bare(std::string_view text, ValueType type) {
  if (type == ValueType::text) return text;
  text.remove_prefix(std::min(text.find_first_not_of(kLineSpace), text.size()));
  text = text.substr(0, text.find_last_not_of(kLineSpace) + 1);
  if (text.starts_with('+')) text.remove_prefix(1);
  return text;
}

/// The first node of this name from `node` up to `end`; `end` where there is none.
NodeId find_named(const SourceTree &tree, NodeId node, NodeId end, std::string_view name) {
  while (node != end && tree.name(node) != name) node = tree.end(node);
  return node;
}

bool has_key(const SourceTree &tree, NodeId entry, const SchemaNode &leaf, const Value &key) {
  const NodeId end = tree.end(entry);
  const NodeId node = find_named(tree, tree.first_child(entry), end, leaf.name);
  if (node == end) return false;
  const std::optional<Value> value = value_from_text(leaf, bare(tree.text(node), leaf.type));
  return value && compare(*value, key) == 0;
}

bool has_keys(const SourceTree &tree, NodeId entry, const PathStep &step) {
  for (std::size_t i = 0; i < step.keys.size(); ++i) {
    if (!has_key(tree, entry, *step.schema->children[i], step.keys[i])) return false;
  }
  return true;
}

std::optional<NodeId> find_below(const SourceTree &tree, NodeId parent, const PathStep &step) {
  const NodeId end = tree.end(parent);
  NodeId node = find_named(tree, tree.first_child(parent), end, step.schema->name);
  while (node != end && !has_keys(tree, node, step)) node = find_named(tree, tree.end(node), end, step.schema->name);
  return node == end ? std::nullopt : std::optional(node);
}

SourceTree read_source(const ConfigurationText &configuration) {
  return configuration.format == InputFormat::xml ? read_xml_source(configuration.text)
                                                  : read_json_source(configuration.text);
}

}  // namespace

SourceLines::SourceLines(const ConfigurationText &configuration)
    : tree_(std::make_unique<const SourceTree>(read_source(configuration))) {}

SourceLines::~SourceLines() = default;

std::optional<std::size_t> SourceLines::line_of(const Path &path) const {
  std::optional<NodeId> node = tree_->root();
  for (const PathStep &step : path) {
    const bool is_whole_list = step.schema->kind == NodeKind::list && step.keys.empty();
    if (is_whole_list && &step != &path.back()) return std::nullopt;
    node = find_below(*tree_, *node, step);
    if (!node) return std::nullopt;
  }
  return path.empty() ? std::nullopt : std::optional(tree_->line(*node));
}

}  // namespace element
