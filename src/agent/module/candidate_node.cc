#include "agent/module/candidate_node.h"

#include "agent/core/path_steps.h"

namespace agent {
namespace {

std::string value_text(const val_value_t *leaf) {
  uint32 size = 0;
  if (leaf == nullptr || val_sprintf_simval_nc(nullptr, leaf, &size) != NO_ERR) return "";
  std::basic_string<xmlChar> text(size + 1, 0);
  if (val_sprintf_simval_nc(text.data(), leaf, &size) != NO_ERR) return "";
  return from_xml(text.c_str());
}

/// A list's keys are its first children.
bool has_keys(const val_value_t *entry, const std::vector<std::string> &keys) {
  const val_value_t *leaf = val_get_first_child(entry);
  for (const std::string &key : keys) {
    if (leaf == nullptr || value_text(leaf) != key) return false;
    leaf = val_get_next_child(leaf);
  }
  return true;
}

val_value_t *find_child(val_value_t *parent, const PathStep &step) {
  for (val_value_t *child = val_get_first_child(parent); child != nullptr; child = val_get_next_child(child)) {
    if (from_xml(child->name) == step.name && (step.keys.empty() || has_keys(child, step.keys))) return child;
  }
  return nullptr;
}

}  // namespace

val_value_t *find_node(val_value_t *root, std::string_view path) {
  val_value_t *node = root;
  for (const PathStep &step : path_steps(path)) {
    if (node != nullptr) node = find_child(node, step);
  }
  return node == root ? nullptr : node;
}

}  // namespace agent
