#include "element/edit/edit_nodes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "element/edit/edit_fault.h"
#include "element/input/expectation.h"
#include "element/input/expected_names.h"
#include "element/input/input_text.h"
#include "element/input/netconf_names.h"
#include "element/schema/leaf_type.h"

namespace element {
namespace {

constexpr std::array<EditOperation, 5> kOperations{EditOperation::merge, EditOperation::replace, EditOperation::create,
                                                   EditOperation::delete_existing, EditOperation::remove};

bool is_deletion(EditOperation operation) {
  return operation == EditOperation::delete_existing || operation == EditOperation::remove;
}

bool is_key(const SchemaNode &node) {
  return node.parent->kind == NodeKind::list && node.position < node.parent->key_count;
}

class EditNodeReader {
 public:
  EditNodeReader(const Schema &schema, const std::string &origin, const ReadOptions &options, ForeignNodes &passed_over)
      : schema_(schema), origin_(origin), options_(options), passed_over_(passed_over) {}

  std::vector<EditNode> read_all(const std::vector<XmlNode> &nodes, const SchemaNode &parent, EditOperation operation) {
    std::vector<EditNode> read;
    for (const XmlNode &node : nodes) {
      const SchemaNode *schema = schema_of(node, parent);
      if (schema == nullptr) {
        pass_over(node);
      } else if (!is_key(*schema)) {
        read.push_back(read_node(node, *schema, operation));
      }
    }
    return read;
  }

 private:
  /// Null for a node of another module.
  const SchemaNode *schema_of(const XmlNode &node, const SchemaNode &parent) const {
    const Module *module = schema_.find_namespace(node.name_space);
    if (module == nullptr && !node.name_space.empty()) return nullptr;
    const SchemaNode *schema = module == nullptr ? nullptr : parent.child(module->name + ":" + node.name);
    if (schema == nullptr) {
      fail(node, fmt::format("node {} is not in the data model there", node.name),
           names_below(schema_, parent, InputFormat::xml));
    }
    if (schema->derived) {
      fail(node, fmt::format("node {} is written by the element itself", node.name), "what an operator writes");
    }
    return schema;
  }

  void pass_over(const XmlNode &node) {
    if (options_.refuse_foreign) {
      fail(node, fmt::format("foreign node {} of namespace \"{}\"", node.name, node.name_space),
           "nodes of the element's own modules alone");
    }
    ForeignModule &module = passed_over_.of_module(node.name_space);
    if (module.nodes++ == 0) module.line = node.line;
    for (const XmlNode &child : node.children) pass_over(child);
  }

  EditNode read_node(const XmlNode &node, const SchemaNode &schema, EditOperation inherited) {
    path_.push_back({&schema, {}});
    EditNode edit;
    edit.schema = &schema;
    edit.operation = operation_of(node, inherited);
    edit.line = node.line;
    if (schema.kind == NodeKind::leaf) {
      require_no_children(node);
      if (!is_deletion(edit.operation)) edit.value = value_of(node, schema);
    } else {
      require_no_text(node);
      if (schema.kind == NodeKind::list) edit.keys = path_.back().keys = keys_of(node, schema);
      // What is taken away goes with all it holds.
      if (!is_deletion(edit.operation)) edit.children = read_all(node.children, schema, edit.operation);
    }
    path_.pop_back();
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
    const std::string_view text = leaf.type == ValueType::text ? std::string_view(node.text) : trimmed(node.text);
    std::optional<Value> value = allowed_value(schema_, leaf, text);
    if (value) return std::move(*value);
    Path path = path_;
    if (is_key(leaf)) path.push_back({&leaf, {}});
    throw edit_fault(origin_, node.line, path, fmt::format("value \"{}\"", text), expected_instead(schema_, &leaf, {}));
  }

  void require_no_children(const XmlNode &node) const {
    if (!node.children.empty()) fail(node, fmt::format("element {} in a leaf", node.children.front().name), "a value");
  }

  void require_no_text(const XmlNode &node) const {
    if (trimmed(node.text).empty()) return;
    fail(node, fmt::format("text \"{}\"", trimmed(node.text)), "elements only");
  }

  [[noreturn]] void fail(const XmlNode &node, const std::string &what, const std::string &expected) const {
    throw edit_fault(origin_, node.line, path_, what, expected);
  }

  const Schema &schema_;
  const std::string &origin_;
  const ReadOptions &options_;
  ForeignNodes &passed_over_;
  Path path_;
};

}  // namespace

std::vector<EditNode> edit_nodes(const Schema &schema, const std::vector<XmlNode> &nodes, EditOperation operation,
                                 const std::string &origin, const ReadOptions &options, ForeignNodes &passed_over) {
  return EditNodeReader(schema, origin, options, passed_over).read_all(nodes, schema.root(), operation);
}

std::optional<EditOperation> operation_named(std::string_view name) {
  for (const EditOperation operation : kOperations) {
    if (name == name_of(operation)) return operation;
  }
  return std::nullopt;
}

}  // namespace element
