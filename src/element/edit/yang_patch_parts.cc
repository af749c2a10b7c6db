#include "element/edit/yang_patch_parts.h"

#include <fmt/format.h>

#include <string_view>

#include "element/edit/edit_fault.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"

namespace element {
namespace {

constexpr std::string_view kPatchNodes = "one of patch-id, comment, edit";
constexpr std::string_view kEditNodes = "one of edit-id, operation, target, point, where, value";

/// Where a leaf of this name goes; null for another name.
std::optional<PatchLeaf> *leaf_of(YangPatchEdit &edit, std::string_view name) {
  if (name == "edit-id") return &edit.id;
  if (name == "operation") return &edit.operation;
  if (name == "target") return &edit.target;
  if (name == "point") return &edit.point;
  return name == "where" ? &edit.where : nullptr;
}

/// What both formats have in common; each file's own is how a node gives its name, text and children.
class PartsReader {
 public:
  explicit PartsReader(const std::string &file) : file_(file) {}

  YangPatchParts patch(const JsonNode &outermost) const {
    if (outermost.children.size() != 1) {
      fail(outermost.children[1].line, fmt::format("member {} beside a YANG patch", outermost.children[1].name),
           kYangPatchMember);
    }
    const JsonNode &patch = outermost.children.front();
    require_object(patch);
    YangPatchParts parts{patch.line, std::nullopt, {}};
    for (const JsonNode &member : patch.children) {
      const std::string_view name = own_name(member);
      if (name == "edit") {
        if (member.kind != JsonNode::Kind::array) fail_kind(member, "an array of objects");
        for (const JsonNode &edit : member.children) parts.edits.push_back(this->edit(edit));
      } else if (name == "patch-id") {
        parts.id = leaf(member);
      } else if (name != "comment") {
        fail_name(member.line, member.name, kPatchNodes);
      }
    }
    return parts;
  }

  YangPatchParts patch(const XmlNode &patch) const {
    YangPatchParts parts{patch.line, std::nullopt, {}};
    for (const XmlNode &child : patch.children) {
      const std::string_view name = own_name(child);
      if (name == "edit") {
        parts.edits.push_back(edit(child));
      } else if (name == "patch-id") {
        set(parts.id, child);
      } else if (name != "comment") {
        fail_name(child.line, child.name, kPatchNodes);
      }
    }
    return parts;
  }

 private:
  YangPatchEdit edit(const JsonNode &object) const {
    require_object(object);
    YangPatchEdit edit;
    edit.line = object.line;
    for (const JsonNode &member : object.children) {
      const std::string_view name = own_name(member);
      if (name == "value") {
        edit.json_value = &member;
      } else if (std::optional<PatchLeaf> *found = leaf_of(edit, name)) {
        *found = leaf(member);
      } else {
        fail_name(member.line, member.name, kEditNodes);
      }
    }
    return edit;
  }

  YangPatchEdit edit(const XmlNode &element) const {
    YangPatchEdit edit;
    edit.line = element.line;
    for (const XmlNode &child : element.children) {
      const std::string_view name = own_name(child);
      if (name == "value") {
        edit.xml_value = &child;
      } else if (std::optional<PatchLeaf> *found = leaf_of(edit, name)) {
        set(*found, child);
      } else {
        fail_name(child.line, child.name, kEditNodes);
      }
    }
    return edit;
  }

  /// Empty for a node of another module.
  static std::string_view own_name(const JsonNode &member) {
    const auto [module, name] = qualified_name(member.name);
    return module.empty() || module == kYangPatchModule ? name : "";
  }
  static std::string_view own_name(const XmlNode &child) {
    return child.name_space == kYangPatchNamespace ? std::string_view(child.name) : "";
  }

  PatchLeaf leaf(const JsonNode &member) const {
    if (member.kind != JsonNode::Kind::text) fail_kind(member, "text in quotes");
    return {member.text, member.line};
  }

  void set(std::optional<PatchLeaf> &leaf, const XmlNode &element) const {
    if (leaf) {
      fail(element.line, fmt::format("\"{}\" is given twice, first on line {}", element.name, leaf->line), "it once");
    }
    leaf = PatchLeaf{std::string(trimmed(element.text)), element.line};
  }

  void require_object(const JsonNode &node) const {
    if (node.kind != JsonNode::Kind::object) fail_kind(node, "an object");
  }

  [[noreturn]] void fail_kind(const JsonNode &node, std::string_view expected) const {
    fail(node.line,
         fmt::format("\"{}\" of a YANG patch with a value of another kind", node.name.empty() ? "edit" : node.name),
         expected);
  }

  [[noreturn]] void fail_name(std::size_t line, std::string_view name, std::string_view expected) const {
    fail(line, fmt::format("node {} is not in a YANG patch there", one_line(name)), expected);
  }

  [[noreturn]] void fail(std::size_t line, const std::string &what, std::string_view expected) const {
    throw edit_fault({file_}, line, {}, what, expected);
  }

  const std::string &file_;
};

}  // namespace

YangPatchParts yang_patch_parts(const JsonNode &outermost, const std::string &file) {
  return PartsReader(file).patch(outermost);
}

YangPatchParts yang_patch_parts(const XmlNode &outermost, const std::string &file) {
  return PartsReader(file).patch(outermost);
}

}  // namespace element
