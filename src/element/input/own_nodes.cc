#include "element/input/own_nodes.h"

#include <fmt/format.h>

#include <utility>

#include "element/input/expected_names.h"
#include "element/input/input_fault.h"
#include "element/input/input_text.h"

namespace element {

OwnNodes::OwnNodes(const Schema &schema, InputFormat format, std::string origin)
    : schema_(schema), format_(format), origin_(std::move(origin)), open_{{&schema.root(), {}}} {}

const SchemaNode &OwnNodes::child(std::string_view module, std::string_view name, std::size_t line) const {
  for (const auto &node : open_node().children) {
    if (node->name != name || node->module != module) continue;
    if (!node->derived) return *node;
    refuse(line, fmt::format("\"{}\" is derived", node->name),
           "what an operator writes, not what the element derives from it");
  }
  refuse(line, fmt::format("\"{}\" of module {} is not in the data model here", one_line(name), module),
         names_below(schema_, open_node(), format_));
}

void OwnNodes::open(const SchemaNode &child, std::size_t line) {
  if (child.kind != NodeKind::list) require_first(child, line);
  enter(child, line);
}

void OwnNodes::open_list(const SchemaNode &list, std::size_t line) {
  require_first(list, line);
  open_.back().seen.set(list.position);
  tree_.open(list, line);
  tree_.close();
}

void OwnNodes::open_entry(const SchemaNode &list, std::size_t line) { enter(list, line); }

void OwnNodes::enter(const SchemaNode &child, std::size_t line) {
  open_.back().seen.set(child.position);
  open_.push_back({&child, {}});
  tree_.open(child, line);
}

void OwnNodes::set_text(std::string_view text) {
  const SchemaNode &leaf = open_node();
  if (leaf.position < leaf.parent->key_count) tree_.set_text(text);
}

void OwnNodes::close() {
  require_whole(open_.back());
  tree_.close();
  open_.pop_back();
}

void OwnNodes::require_first(const SchemaNode &child, std::size_t line) const {
  if (!open_.back().seen.test(child.position)) return;
  const SourceTree::NodeId parent = tree_.open_node();
  const SourceTree::NodeId first = tree_.find_from(tree_.first_child(parent), tree_.end(parent), child);
  refuse(line, fmt::format("\"{}\" is given twice, first on line {}", child.name, tree_.line(first)), "it once");
}

void OwnNodes::require_whole(const Frame &frame) const {
  for (const auto &child : frame.schema->children) {
    if (frame.seen.test(child->position)) continue;
    const std::size_t line = tree_.line(tree_.open_node());
    if (child->position < frame.schema->key_count) {
      refuse(line, fmt::format("key \"{}\" is missing", child->name), "all keys of the entry");
    }
    // What a case requires is up to the parser, for it depends on the case.
    if (child->kind == NodeKind::leaf && child->mandatory && child->choice == 0) {
      refuse(line, fmt::format("\"{}\" is missing", child->name), "it to be set, because it is mandatory");
    }
  }
}

void OwnNodes::refuse(std::size_t line, const std::string &fault, const std::string &expected) const {
  const std::string path = open_.size() == 1 ? "" : path_text(tree_, tree_.open_node());
  throw input_fault({origin_, line, path}, fault, expected);
}

}  // namespace element
