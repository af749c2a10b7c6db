#include "element/edit/yang_patch.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "element/edit/edit_nodes.h"
#include "element/edit/edit_target.h"
#include "element/edit/json_edit_nodes.h"
#include "element/edit/yang_patch_parts.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"

namespace element {
namespace {

constexpr std::array<std::string_view, 7> kPatchOperations{"create", "delete", "insert", "merge",
                                                           "move",   "remove", "replace"};

/// Nodes that are only on the way to what stands at the path's end.
std::vector<EditNode> at_end(const Path &path, std::vector<EditNode> nodes, std::size_t line) {
  for (auto step = path.rbegin(); step != path.rend(); ++step) {
    nodes = {EditNode{step->schema, EditOperation::none, step->keys, {}, std::move(nodes), line}};
  }
  return nodes;
}

class YangPatchReader {
 public:
  YangPatchReader(const Schema &schema, InputFormat format, const std::string &file, const ReadOptions &options)
      : model_(schema, format, {file}, options, passed_over_) {}

  EditFile run(const YangPatchParts &patch) {
    require(patch.id, patch.line, "patch-id");
    if (patch.edits.empty()) model_.fail(patch.line, "yang-patch without an edit", "one edit at least");
    for (const YangPatchEdit &edit : patch.edits) add(edit);
    result_.passed_over = passed_over_.result(model_.origin().file);
    return std::move(result_);
  }

 private:
  void add(const YangPatchEdit &edit) {
    model_.set_edit_id("");
    const PatchLeaf &id = require(edit.id, edit.line, "edit-id");
    const auto [first, is_new] = lines_.emplace(id.text, id.line);
    if (!is_new) {
      model_.fail(id.line, fmt::format("edit-id \"{}\" is given twice, first on line {}", id.text, first->second),
                  "an id of its own for each edit");
    }
    model_.set_edit_id(id.text);
    const EditOperation operation = operation_of(edit);
    const PatchLeaf &target = require(edit.target, edit.line, "target");
    read_target(model_, target.text, target.line);
    add_edit(is_deletion(operation) ? deletion(edit, operation) : change(edit, operation));
  }

  EditOperation operation_of(const YangPatchEdit &edit) const {
    const PatchLeaf &given = require(edit.operation, edit.line, "operation");
    if (given.text == "insert" || given.text == "move") {
      model_.fail(given.line, fmt::format("operation {}, but no list is ordered by its operator", given.text),
                  "create, merge or replace");
    }
    const std::optional<EditOperation> operation = operation_named(given.text);
    if (!operation) {
      model_.fail(given.line, fmt::format("operation \"{}\"", given.text),
                  fmt::format("one of {}", fmt::join(kPatchOperations, ", ")));
    }
    for (const std::optional<PatchLeaf> &leaf : {edit.point, edit.where}) {
      if (leaf) model_.fail(leaf->line, fmt::format("place to insert with operation {}", given.text), "none");
    }
    return *operation;
  }

  std::vector<EditNode> deletion(const YangPatchEdit &edit, EditOperation operation) {
    if (edit.has_value()) {
      model_.fail(edit.value_line(), fmt::format("value with operation {}", name_of(operation)), "the target alone");
    }
    Path path = std::exchange(model_.path(), {});
    if (path.empty()) model_.fail(edit.target->line, "the whole configuration as target of a deletion", "a node of it");
    EditNode node{path.back().schema, operation, path.back().keys, {}, {}, edit.target->line};
    path.pop_back();
    return at_end(path, {std::move(node)}, edit.target->line);
  }

  std::vector<EditNode> change(const YangPatchEdit &edit, EditOperation operation) {
    if (!edit.has_value()) {
      model_.fail(edit.line, fmt::format("operation {} without value", name_of(operation)), "the target's content");
    }
    Path &path = model_.path();
    if (path.empty()) return value_of(edit, model_.schema().root(), operation);
    const PathStep target = path.back();
    path.pop_back();
    std::vector<EditNode> nodes =
        value_of(edit, path.empty() ? model_.schema().root() : *path.back().schema, operation);
    if (nodes.size() != 1 || nodes.front().schema != target.schema ||
        compare_keys(nodes.front().keys, target.keys) != 0) {
      path.push_back(target);
      model_.fail(edit.value_line(), "value of another node than the target",
                  "the target alone, in its parent's place");
    }
    return at_end(std::exchange(path, {}), std::move(nodes), edit.target->line);
  }

  std::vector<EditNode> value_of(const YangPatchEdit &edit, const SchemaNode &parent, EditOperation operation) {
    if (edit.xml_value != nullptr) {
      return edit_nodes(model_, edit.xml_value->children, parent, {operation, false});
    }
    if (edit.json_value->kind != JsonNode::Kind::object) {
      model_.fail(edit.json_value->line, "value that is no object", "an object, which holds the target");
    }
    return json_edit_nodes(model_, *edit.json_value, parent, JsonMeaning::values, operation);
  }

  void add_edit(std::vector<EditNode> nodes) { result_.edits.push_back({model_.origin(), false, std::move(nodes)}); }

  const PatchLeaf &require(const std::optional<PatchLeaf> &leaf, std::size_t line, std::string_view name) const {
    if (!leaf) model_.fail(line, fmt::format("\"{}\" is missing", name), "it to be set, because it is mandatory");
    return *leaf;
  }

  ForeignNodes passed_over_;
  EditModel model_;
  std::map<std::string, std::size_t> lines_;  ///< of the edits' ids
  EditFile result_;
};

}  // namespace

bool is_yang_patch(const JsonNode &outermost) { return outermost.member(kYangPatchMember) != nullptr; }

bool is_yang_patch(const XmlNode &outermost) {
  return outermost.name == "yang-patch" && outermost.name_space == kYangPatchNamespace;
}

EditFile yang_patch_edits(const Schema &schema, const JsonNode &outermost, const std::string &file,
                          const ReadOptions &options) {
  return YangPatchReader(schema, InputFormat::json, file, options).run(yang_patch_parts(outermost, file));
}

EditFile yang_patch_edits(const Schema &schema, const XmlNode &outermost, const std::string &file,
                          const ReadOptions &options) {
  return YangPatchReader(schema, InputFormat::xml, file, options).run(yang_patch_parts(outermost, file));
}

}  // namespace element
