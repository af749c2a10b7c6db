#include "element/input/source_lines.h"

#include <utility>

#include "element/input/source_tree.h"

namespace element {
namespace {

using NodeId = SourceTree::NodeId;

bool has_keys(const SourceTree &tree, NodeId entry, const PathStep &step) {
  const NodeId end = tree.end(entry);
  for (std::size_t i = 0; i < step.keys.size(); ++i) {
    const NodeId leaf = tree.find_from(tree.first_child(entry), end, *step.schema->children[i]);
    if (leaf == end) return false;
    const std::optional<Value> value = key_value(tree, leaf);
    if (!value || compare(*value, step.keys[i]) != 0) return false;
  }
  return true;
}

enum class Wanted { first, all };

/// Appends the children of `parent` that the step means. There is one at most, unless the file is not valid or holds
/// several edits.
void append_matches(const SourceTree &tree, NodeId parent, const PathStep &step, Wanted wanted,
                    std::vector<NodeId> &matches) {
  const NodeId end = tree.end(parent);
  for (NodeId node = tree.find_from(tree.first_child(parent), end, *step.schema); node != end;
       node = tree.find_from(tree.end(node), end, *step.schema)) {
    if (!has_keys(tree, node, step)) continue;
    matches.push_back(node);
    if (wanted == Wanted::first) break;
  }
}

std::vector<NodeId> find(const SourceTree &tree, const Path &path, Wanted wanted) {
  std::vector<NodeId> nodes{tree.root()};
  for (const PathStep &step : path) {
    const bool is_whole_list = step.schema->kind == NodeKind::list && step.keys.empty();
    if (is_whole_list && &step != &path.back()) return {};
    std::vector<NodeId> below;
    for (const NodeId node : nodes) append_matches(tree, node, step, wanted, below);
    nodes = std::move(below);
  }
  return path.empty() ? std::vector<NodeId>() : nodes;
}

}  // namespace

SourceLines::SourceLines() : SourceLines(SourceTree()) {}

SourceLines::SourceLines(SourceTree tree) : tree_(std::make_shared<const SourceTree>(std::move(tree))) {}

std::optional<std::size_t> SourceLines::line_of(const Path &path) const {
  std::vector<NodeId> nodes = find(*tree_, path, Wanted::first);
  if (nodes.empty()) nodes = find(*tree_, path, Wanted::all);
  return nodes.empty() ? std::nullopt : std::optional(tree_->line(nodes.front()));
}

std::vector<std::size_t> SourceLines::lines_of(const Path &path) const {
  std::vector<std::size_t> lines;
  for (const NodeId node : find(*tree_, path, Wanted::all)) lines.push_back(tree_->line(node));
  return lines;
}

}  // namespace element
