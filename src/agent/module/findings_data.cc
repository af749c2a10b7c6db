#include "agent/module/findings_data.h"

namespace agent {
namespace {

constexpr const char *kModule = "vpnval-agent";

val_value_t *make_value(obj_template_t *parent, const DataNode &node) {
  if (node.children.empty()) return make_leaf(parent, node.name.c_str(), node.text);
  obj_template_t *object = obj_find_child(parent, to_xml(kModule), to_xml(node.name));
  val_value_t *value = object == nullptr ? nullptr : val_new_value();
  if (value == nullptr) return nullptr;
  val_init_from_template(value, object);
  for (const DataNode &child : node.children) {
    if (val_value_t *made = make_value(object, child)) val_add_child(made, value);
  }
  return value;
}

}  // namespace

ncx_module_t *own_module() { return ncx_find_module(to_xml(kModule), nullptr); }

val_value_t *make_leaf(obj_template_t *parent, const char *name, const std::string &text) {
  obj_template_t *leaf = obj_find_child(parent, to_xml(kModule), to_xml(name));
  if (leaf == nullptr) return nullptr;
  status_t result = NO_ERR;
  return val_make_simval_obj(leaf, to_xml(text), &result);
}

void add_findings(val_value_t *parent, const std::vector<Finding> &findings) {
  for (const Finding &finding : findings) {
    const DataNode entry{"finding", "", finding.data};
    if (val_value_t *value = make_value(parent->obj, entry)) val_add_child(value, parent);
  }
}

}  // namespace agent
