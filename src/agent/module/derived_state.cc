#include "agent/module/derived_state.h"

#include <array>
#include <span>

namespace agent {
namespace {

/// Modules with one container of the same name, which is derived as a whole.
constexpr std::array<const char *, 6> kDerivedModules{
    "internal", "KZ-MGMD-ROUTER-MIB", "KZ-PWE3-MIB", "KZ-VLAN-MANAGER-MIB", "KZ-VPLS-MIB", "KZ-VPWS-MIB"};

std::function<std::optional<std::vector<DerivedNode>>()> derived_nodes;

val_value_t *add_leaf(obj_template_t *leaf, const std::string &text, val_value_t *parent) {
  status_t result = NO_ERR;
  val_value_t *value = val_make_simval_obj(leaf, to_xml(text), &result);
  if (value != nullptr) val_add_child(value, parent);
  return value;
}

/// An entry's keys become its first children.
void add_keys(val_value_t *entry, const std::vector<std::string> &keys) {
  obj_key_t *key = obj_first_key(entry->obj);
  for (const std::string &text : keys) {
    if (key == nullptr) return;
    add_leaf(key->keyobj, text, entry);
    key = obj_next_key(key);
  }
  val_gen_index_chain(entry->obj, entry);
}

val_value_t *add_node(const PathStep &step, const std::string &value, val_value_t *parent) {
  obj_template_t *object = obj_find_child(parent->obj, obj_get_mod_name(parent->obj), to_xml(step.name));
  if (object == nullptr) return nullptr;
  if (obj_is_leafy(object)) return add_leaf(object, value, parent);
  val_value_t *node = val_new_value();
  if (node == nullptr) return nullptr;
  val_init_from_template(node, object);
  val_add_child(node, parent);
  if (!step.keys.empty()) add_keys(node, step.keys);
  return node;
}

/// The nodes come in the order of a walk: what two neighbours have in common is there once.
class TreeMaker {
 public:
  explicit TreeMaker(val_value_t *top) : open_{{PathStep{}, top}} {}

  /// False where the YANG modules know no such node. Precondition: the path is below the top.
  bool add(std::span<const PathStep> path, const std::string &value) {
    std::size_t depth = 1;
    while (depth < open_.size() && depth <= path.size() && open_[depth].step == path[depth - 1]) ++depth;
    open_.resize(depth);
    for (; depth <= path.size(); ++depth) {
      val_value_t *node = add_node(path[depth - 1], value, open_.back().node);
      if (node == nullptr) return false;
      open_.push_back({path[depth - 1], node});
    }
    return true;
  }

 private:
  struct Open {
    PathStep step;
    val_value_t *node = nullptr;
  };

  std::vector<Open> open_;
};

status_t get_derived(ses_cb_t *, getcb_mode_t mode, const val_value_t *asked, val_value_t *filled) {
  if (mode != GETCB_GET_VALUE) return ERR_NCX_OPERATION_NOT_SUPPORTED;
  const std::optional<std::vector<DerivedNode>> nodes = derived_nodes();
  if (!nodes) return ERR_NCX_OPERATION_FAILED;
  const std::string top = from_xml(asked->name);
  TreeMaker tree(filled);
  bool is_empty = true;
  for (const DerivedNode &node : *nodes) {
    if (node.path.empty() || node.path.front().name != top) continue;
    if (!tree.add(std::span(node.path).subspan(1), node.value)) return ERR_NCX_OPERATION_FAILED;
    is_empty = false;
  }
  return is_empty ? ERR_NCX_SKIPPED : NO_ERR;
}

}  // namespace

status_t add_derived_state(std::function<std::optional<std::vector<DerivedNode>>()> derived) {
  derived_nodes = std::move(derived);
  for (const char *name : kDerivedModules) {
    ncx_module_t *module = ncx_find_module(to_xml(name), nullptr);
    obj_template_t *top = module == nullptr ? nullptr : ncx_find_object(module, to_xml(name));
    if (top == nullptr) return ERR_NCX_OPERATION_FAILED;
    const status_t result = agt_add_top_virtual(top, get_derived);
    if (result != NO_ERR) return result;
  }
  return NO_ERR;
}

void forget_derived_state(val_value_t *running) {
  for (const char *name : kDerivedModules) {
    val_value_t *top = val_find_child(running, to_xml(name), to_xml(name));
    if (top != nullptr) top->cachetime = 0;
  }
}

}  // namespace agent
