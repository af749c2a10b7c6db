#include "element/edit/edit_of_difference.h"

#include <algorithm>

namespace element {
namespace {

EditOperation operation_for(const Change &change) {
  switch (change.kind) {
    case ChangeKind::below:
    case ChangeKind::modified:
      return EditOperation::merge;
    case ChangeKind::created:
      return EditOperation::create;
    case ChangeKind::deleted:
      return EditOperation::delete_existing;
    case ChangeKind::value_set:
      return change.before == nullptr ? EditOperation::create : EditOperation::replace;
  }
  return EditOperation::merge;
}

int turn_of(const EditNode &node) {
  if (node.operation == EditOperation::delete_existing) return 0;
  return node.operation == EditOperation::merge ? 1 : 2;
}

void add_edits(const Change &change, bool in_created, std::vector<EditNode> &nodes);

void add_edit(const Change &change, bool in_created, std::vector<EditNode> &nodes) {
  const SchemaNode &schema = *change.schema;
  if (schema.derived) return;
  if (schema.kind == NodeKind::list && !change.is_entry()) return add_edits(change, in_created, nodes);
  EditNode node;
  node.schema = &schema;
  node.operation = in_created ? EditOperation::create : operation_for(change);
  if (change.is_entry()) node.keys = change.keys();
  if (schema.kind == NodeKind::leaf && change.after != nullptr) node.value = change.after->value;
  add_edits(change, node.operation == EditOperation::create, node.children);
  const bool is_nothing = node.operation == EditOperation::merge && node.children.empty();
  if (!is_nothing) nodes.push_back(std::move(node));
}

void add_edits(const Change &change, bool in_created, std::vector<EditNode> &nodes) {
  for (const Change &below : change.children) add_edit(below, in_created, nodes);
  std::stable_sort(nodes.begin(), nodes.end(),
                   [](const EditNode &a, const EditNode &b) { return turn_of(a) < turn_of(b); });
}

}  // namespace

Edit edit_of(const Change &difference) {
  Edit edit;
  add_edits(difference, false, edit.nodes);
  return edit;
}

}  // namespace element
