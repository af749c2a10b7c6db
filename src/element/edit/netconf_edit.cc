#include "element/edit/netconf_edit.h"

#include <fmt/format.h>

#include "element/edit/edit_fault.h"
#include "element/edit/edit_nodes.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"

namespace element {
namespace {

constexpr const char *kAnEdit = "an edit-config, a config or the nodes of an edit";

bool is_netconf(const XmlNode &node, std::string_view name) {
  return node.name_space == kNetconfNamespace && node.name == name;
}

bool is_edit_operation(const XmlNode &node) {
  return is_netconf(node, "edit-config") || (node.name_space == kNmdaNamespace && node.name == "edit-data");
}

class NetconfEditReader {
 public:
  NetconfEditReader(const Schema &schema, const std::string &origin, const ReadOptions &options)
      : schema_(schema), origin_{origin}, model_(schema, InputFormat::xml, origin_, options, passed_over_) {}

  EditFile run(const std::vector<XmlNode> &outermost) {
    for (const XmlNode &node : outermost) add(node);
    flush();
    if (file_.edits.empty()) throw edit_fault(origin_, 0, {}, "no edit", kAnEdit);
    file_.passed_over = passed_over_.result(origin_.file);
    return std::move(file_);
  }

 private:
  void add(const XmlNode &node) {
    if (is_netconf(node, "hello")) return;
    if (is_netconf(node, "rpc")) return add_rpc(node);
    if (is_edit_operation(node)) return add_edit_config(node);
    if (node.name == "config" && (node.name_space == kNetconfNamespace || node.name_space.empty())) {
      return add_nodes(node.children, EditOperation::merge);
    }
    if (is_netconf(node, "rpc-reply") || is_netconf(node, "data")) {
      fail(node, fmt::format("{} holds a whole configuration, no edit", node.name), kAnEdit);
    }
    if (schema_.find_namespace(node.name_space) == nullptr) fail(node, fmt::format("element {}", node.name), kAnEdit);
    bare_nodes_.push_back(node);
  }

  void add_rpc(const XmlNode &rpc) {
    for (const XmlNode &operation : rpc.children) {
      if (!is_edit_operation(operation)) fail(operation, fmt::format("rpc {}", operation.name), "edit-config alone");
      add_edit_config(operation);
    }
  }

  void add_edit_config(const XmlNode &edit_config) {
    const XmlNode *config = edit_config.child("config");
    if (config == nullptr) fail(edit_config, fmt::format("{} without config", edit_config.name), "the edit itself");
    const XmlNode *given = edit_config.child("default-operation");
    const std::string_view name = given == nullptr ? "merge" : trimmed(given->text);
    if (name == "replace") {
      add_nodes(config->children, EditOperation::merge);
      file_.edits.back().replaces_everything = true;
    } else if (name == "merge" || name == "none") {
      add_nodes(config->children, name == "merge" ? EditOperation::merge : EditOperation::none);
    } else {
      fail(*given, fmt::format("default-operation \"{}\"", name), "merge, replace or none");
    }
  }

  void add_nodes(const std::vector<XmlNode> &nodes, EditOperation operation) {
    flush();
    add_edit(nodes, operation);
  }

  /// Top-level nodes in a row are one edit.
  void flush() {
    if (!bare_nodes_.empty()) add_edit(bare_nodes_, EditOperation::merge);
    bare_nodes_.clear();
  }

  void add_edit(const std::vector<XmlNode> &nodes, EditOperation operation) {
    file_.edits.push_back({origin_, false, edit_nodes(model_, nodes, schema_.root(), {operation})});
  }

  [[noreturn]] void fail(const XmlNode &node, const std::string &what, const std::string &expected) const {
    model_.fail(node.line, what, expected);
  }

  const Schema &schema_;
  EditOrigin origin_;
  ForeignNodes passed_over_;
  EditModel model_;
  std::vector<XmlNode> bare_nodes_;
  EditFile file_;
};

}  // namespace

EditFile netconf_edits(const Schema &schema, const std::vector<XmlNode> &outermost, const std::string &origin,
                       const ReadOptions &options) {
  return NetconfEditReader(schema, origin, options).run(outermost);
}

}  // namespace element
