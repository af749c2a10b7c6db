#include "element/edit/merge_patch.h"

#include <fmt/format.h>

#include "element/edit/edit_model.h"
#include "element/edit/json_edit_nodes.h"
#include "element/input/netconf_names.h"

namespace element {
namespace {

/// The object that holds the patch's top-level members.
const JsonNode &content_of(const JsonNode &patch, const std::string &file) {
  const JsonNode *data = patch.member(kRestconfData);
  if (data == nullptr) return patch;
  if (patch.children.size() > 1 || data->kind != JsonNode::Kind::object) {
    throw edit_fault({file}, data->line, {},
                     fmt::format("member {} that is no object around all others", kRestconfData),
                     "one object, which holds the patch");
  }
  return *data;
}

}  // namespace

EditFile merge_patch_edit(const Schema &schema, const JsonNode &patch, const std::string &file,
                          const ReadOptions &options) {
  ForeignNodes passed_over;
  EditModel model(schema, InputFormat::json, {file}, options, passed_over);
  EditFile result;
  result.edits.push_back(
      {{file},
       false,
       json_edit_nodes(model, content_of(patch, file), schema.root(), JsonMeaning::merge_patch, EditOperation::merge)});
  result.passed_over = passed_over.result(file);
  return result;
}

}  // namespace element
