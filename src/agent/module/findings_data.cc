#include "agent/module/findings_data.h"

namespace agent {
namespace {

constexpr const char *kModule = "vpnval-agent";

void add_leaf(val_value_t *parent, const char *name, const std::string &text) {
  if (text.empty()) return;
  if (val_value_t *leaf = make_leaf(parent->obj, name, text)) val_add_child(leaf, parent);
}

void add_leaves(val_value_t *parent, const char *name, const std::vector<std::string> &texts) {
  for (const std::string &text : texts) add_leaf(parent, name, text);
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
  obj_template_t *list = obj_find_child(parent->obj, to_xml(kModule), to_xml("finding"));
  for (const Finding &finding : findings) {
    val_value_t *entry = list == nullptr ? nullptr : val_new_value();
    if (entry == nullptr) return;
    val_init_from_template(entry, list);
    val_add_child(entry, parent);
    add_leaf(entry, "rule", finding.rule);
    add_leaf(entry, "validation-point", finding.point);
    add_leaf(entry, "node", finding.path);
    add_leaf(entry, "message", finding.message);
    add_leaves(entry, "party", finding.parties);
    add_leaves(entry, "take-back", finding.take_back);
    add_leaves(entry, "instead", finding.instead);
  }
}

}  // namespace agent
