#include "element/edit/apply_edit.h"

#include <fmt/format.h>

#include <utility>

#include "element/datastore/path.h"
#include "element/edit/edit_fault.h"

namespace element {
namespace {

bool is_bare_container(const SchemaNode &schema) { return schema.kind == NodeKind::container && !schema.presence; }

class EditApplier {
 public:
  explicit EditApplier(const Edit &edit) : edit_(edit) {}

  void apply_all(const std::vector<EditNode> &nodes, Node &parent) {
    for (const EditNode &node : nodes) {
      path_.push_back({node.schema, node.keys});
      apply(node, parent);
      path_.pop_back();
    }
  }

 private:
  void apply(const EditNode &edit, Node &parent) {
    const bool is_there = find(edit, std::as_const(parent)) != nullptr;
    switch (edit.operation) {
      case EditOperation::none:
        // An empty container is there although the tree does not hold it: what the edit looks for below is missing.
        if (!is_there && !is_bare_container(*edit.schema)) fail_missing(edit);
        break;
      case EditOperation::create:
        if (is_there) fail(edit, "is there already", "a node that is not there", "data-exists");
        break;
      case EditOperation::replace:
        erase(edit, parent);
        break;
      case EditOperation::delete_existing:
        if (!is_there) fail_missing(edit);
        return erase(edit, parent);
      case EditOperation::remove:
        return erase(edit, parent);
      case EditOperation::merge:
        break;
    }
    write(edit, parent);
  }

  static const Node *find(const EditNode &edit, const Node &parent) {
    const Node *node = parent.find(*edit.schema);
    return node == nullptr || edit.keys.empty() ? node : node->find_entry(edit.keys);
  }

  void write(const EditNode &edit, Node &parent) {
    Node &found = child(parent, *edit.schema);
    Node &node = edit.keys.empty() ? found : put_entry(found, edit.keys);
    if (edit.schema->kind == NodeKind::leaf && edit.operation != EditOperation::none) node.value = edit.value;
    apply_all(edit.children, node);
    if (is_bare_container(*edit.schema) && node.children.empty()) return erase(edit, parent);
    erase_other_cases(*edit.schema, parent);
  }

  static void erase_other_cases(const SchemaNode &schema, Node &parent) {
    if (schema.choice == 0) return;
    for (std::size_t i = parent.children.size(); i-- > 0;) {
      const SchemaNode &other = *std::as_const(parent.children)[i].schema;
      if (other.choice == schema.choice && other.choice_case != schema.choice_case) erase_child(parent, other);
    }
  }

  // A list goes with its last entry.
  static void erase(const EditNode &edit, Node &parent) {
    if (find(edit, std::as_const(parent)) == nullptr) return;
    if (!edit.keys.empty()) {
      Node &list = child(parent, *edit.schema);
      erase_entry(list, edit.keys);
      if (!list.children.empty()) return;
    }
    erase_child(parent, *edit.schema);
  }

  [[noreturn]] void fail_missing(const EditNode &edit) const {
    fail(edit, "is not there", "a node that is there", "data-missing");
  }

  [[noreturn]] void fail(const EditNode &edit, const char *what, const char *expected, const char *tag) const {
    throw edit_fault(edit_.origin, edit.line, path_, what,
                     fmt::format("{} (operation {}: {})", expected, name_of(edit.operation), tag));
  }

  const Edit &edit_;
  Path path_;
};

}  // namespace

const char *name_of(EditOperation operation) {
  switch (operation) {
    case EditOperation::none:
      return "none";
    case EditOperation::merge:
      return "merge";
    case EditOperation::replace:
      return "replace";
    case EditOperation::create:
      return "create";
    case EditOperation::delete_existing:
      return "delete";
    case EditOperation::remove:
      return "remove";
  }
  return "";
}

Tree edited(const Tree &configuration, const Edit &edit) {
  Tree result = edit.replaces_everything ? Tree(configuration.schema()) : configuration;
  EditApplier(edit).apply_all(edit.nodes, result.root());
  return result;
}

}  // namespace element
