#ifndef ELEMENT_EDIT_YANG_PATCH_PARTS_H
#define ELEMENT_EDIT_YANG_PATCH_PARTS_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "element/edit/json_node.h"
#include "element/edit/xml_node.h"

namespace element {

/// A leaf of a YANG patch itself.
struct PatchLeaf {
  std::string text;
  std::size_t line = 0;
};

/// An edit of a YANG patch as its file has it, in either format.
struct YangPatchEdit {
  std::size_t line = 0;
  std::optional<PatchLeaf> id;
  std::optional<PatchLeaf> operation;
  std::optional<PatchLeaf> target;
  std::optional<PatchLeaf> point;
  std::optional<PatchLeaf> where;
  const JsonNode *json_value = nullptr;  ///< null where the file is XML or gives none; part of what was read
  const XmlNode *xml_value = nullptr;    ///< likewise for JSON

  bool has_value() const { return json_value != nullptr || xml_value != nullptr; }
  std::size_t value_line() const { return xml_value != nullptr ? xml_value->line : json_value->line; }
};

struct YangPatchParts {
  std::size_t line = 0;
  std::optional<PatchLeaf> id;
  std::vector<YangPatchEdit> edits;
};

/// Takes apart the YANG patch in a file's outermost value or element. What is mandatory may be missing. Throws
/// InputError, which names `file` and line, for a node that a YANG patch does not have, or not in this form.
YangPatchParts yang_patch_parts(const JsonNode &outermost, const std::string &file);
YangPatchParts yang_patch_parts(const XmlNode &outermost, const std::string &file);

}  // namespace element

#endif
