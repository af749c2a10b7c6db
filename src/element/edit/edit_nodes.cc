#include "element/edit/edit_nodes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "element/input/input_text.h"
#include "element/input/netconf_names.h"

namespace element {
namespace {

constexpr std::array<EditOperation, 5> kOperations{EditOperation::merge, EditOperation::replace, EditOperation::create,
                                                   EditOperation::delete_existing, EditOperation::remove};

class EditNodeReader {
 public:
  EditNodeReader(EditModel &model, bool has_attributes) : model_(model), has_attributes_(has_attributes) {}

  std::vector<EditNode> read_all(const std::vector<XmlNode> &nodes, const SchemaNode &parent, EditOperation operation) {
    std::vector<EditNode> read;
    std::map<const SchemaNode *, std::size_t> leafs;  // with their lines
    for (const XmlNode &node : nodes) {
      const SchemaNode *schema = model_.child(parent, {node.name_space, node.name, node.line});
      if (schema == nullptr) {
        pass_over(node);
        continue;
      }
      if (schema->kind == NodeKind::leaf) require_first(leafs, *schema, node.line);
      if (!is_key(*schema)) read.push_back(read_node(node, *schema, operation));
    }
    return read;
  }

 private:
  void require_first(std::map<const SchemaNode *, std::size_t> &lines, const SchemaNode &leaf, std::size_t line) const {
    const auto [first, is_new] = lines.emplace(&leaf, line);
    if (is_new) return;
    model_.fail(line, fmt::format("\"{}\" is given twice, first on line {}", leaf.name, first->second), "it once");
  }

  void pass_over(const XmlNode &node) {
    model_.count_foreign(node.name_space, node.line);
    for (const XmlNode &child : node.children) pass_over(child);
  }

  EditNode read_node(const XmlNode &node, const SchemaNode &schema, EditOperation inherited) {
    model_.path().push_back({&schema, {}});
    EditNode edit;
    edit.schema = &schema;
    edit.operation = operation_of(node, inherited);
    edit.line = node.line;
    if (schema.kind == NodeKind::leaf) {
      require_no_children(node);
      if (!is_deletion(edit.operation)) edit.value = value_of(node, schema);
    } else {
      require_no_text(node);
      if (schema.kind == NodeKind::list) edit.keys = model_.path().back().keys = keys_of(node, schema);
      // What is taken away goes with all it holds.
      if (!is_deletion(edit.operation)) edit.children = read_all(node.children, schema, edit.operation);
    }
    model_.path().pop_back();
    return edit;
  }

  EditOperation operation_of(const XmlNode &node, EditOperation inherited) const {
    EditOperation operation = inherited;
    for (const XmlNodeAttribute &attribute : node.attributes) {
      if (attribute.name_space.empty()) {
        fail(node, fmt::format("attribute {} without namespace", attribute.name),
             fmt::format("operation in the namespace {}", kNetconfNamespace));
      }
      if (attribute.name_space != kNetconfNamespace || attribute.name != "operation") continue;
      if (!has_attributes_) fail(node, "operation inside a value", "the edit's own operation alone");
      const std::optional<EditOperation> named = operation_named(attribute.value);
      if (!named) {
        fail(node, fmt::format("operation \"{}\"", attribute.value), "merge, replace, create, delete or remove");
      }
      operation = *named;
    }
    return operation;
  }

  std::vector<Value> keys_of(const XmlNode &node, const SchemaNode &list) const {
    std::vector<Value> keys;
    for (std::size_t i = 0; i < list.key_count; ++i) {
      const SchemaNode &key = *list.children[i];
      const auto found = std::find_if(node.children.begin(), node.children.end(), [&](const XmlNode &child) {
        return child.name == key.name && child.name_space == node.name_space;
      });
      if (found == node.children.end()) fail(node, fmt::format("entry without key {}", key.name), "all of its keys");
      keys.push_back(value_of(*found, key));
    }
    return keys;
  }

  Value value_of(const XmlNode &node, const SchemaNode &leaf) const {
    return model_.value(leaf, leaf.type == ValueType::text ? std::string_view(node.text) : trimmed(node.text),
                        node.line);
  }

  void require_no_children(const XmlNode &node) const {
    if (!node.children.empty()) fail(node, fmt::format("element {} in a leaf", node.children.front().name), "a value");
  }

  void require_no_text(const XmlNode &node) const {
    if (trimmed(node.text).empty()) return;
    fail(node, fmt::format("text \"{}\"", trimmed(node.text)), "elements only");
  }

  [[noreturn]] void fail(const XmlNode &node, const std::string &what, const std::string &expected) const {
    model_.fail(node.line, what, expected);
  }

  EditModel &model_;
  bool has_attributes_;
};

}  // namespace

std::vector<EditNode> edit_nodes(EditModel &model, const std::vector<XmlNode> &nodes, const SchemaNode &parent,
                                 EditOperations operations) {
  return EditNodeReader(model, operations.has_attributes).read_all(nodes, parent, operations.outermost);
}

std::optional<EditOperation> operation_named(std::string_view name) {
  for (const EditOperation operation : kOperations) {
    if (name == name_of(operation)) return operation;
  }
  return std::nullopt;
}

}  // namespace element
