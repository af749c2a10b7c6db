#include "element/input/configuration_tree.h"

#include <fmt/format.h>

#include <memory>
#include <new>
#include <utility>

#include "element/input/input_error.h"
#include "element/input/input_text.h"

namespace element {
namespace {

struct FreeText {
  void operator()(char *text) const { free(text); }
};

std::string path_of(const lyd_node &node) {
  const std::unique_ptr<char, FreeText> path(lyd_path(&node, LYD_PATH_STD, nullptr, 0));
  if (!path) throw std::bad_alloc();
  return path.get();
}

bool holds_something(const lyd_node &node) {
  if (node.schema->nodetype != LYS_CONTAINER || (node.schema->flags & LYS_PRESENCE) != 0) return true;
  for (const lyd_node *below = lyd_child(&node); below != nullptr; below = below->next) {
    if (holds_something(*below)) return true;
  }
  return false;
}

class Builder {
 public:
  explicit Builder(const std::string &origin) : origin_(origin) {}

  void add_all(const lyd_node *first, Node &parent) const {
    for (const lyd_node *data = first; data != nullptr; data = data->next) {
      require_no_attribute(*data);
      if (holds_something(*data)) add(*data, parent);
    }
  }

 private:
  void add(const lyd_node &data, Node &parent) const {
    const SchemaNode &schema = *parent.schema->child(data.schema->name);
    Node &node = child(parent, schema);
    if (schema.kind == NodeKind::leaf) {
      node.value = value_of(data, schema);
    } else if (schema.kind == NodeKind::list) {
      add_all(lyd_child_no_keys(&data), append_entry(node, keys_of(data, schema)));
    } else {
      add_all(lyd_child(&data), node);
    }
  }

  static std::vector<Value> keys_of(const lyd_node &entry, const SchemaNode &list) {
    std::vector<Value> keys;
    keys.reserve(list.key_count);
    const lyd_node *key = lyd_child(&entry);
    for (std::size_t i = 0; i < list.key_count; ++i, key = key->next) {
      keys.push_back(value_of(*key, *list.children[i]));
    }
    return keys;
  }

  // The parser has checked the text against the leaf's type.
  static Value value_of(const lyd_node &data, const SchemaNode &leaf) {
    return value_from_text(leaf, lyd_get_value(&data)).value();
  }

  void require_no_attribute(const lyd_node &data) const {
    if (data.meta == nullptr) return;
    throw InputError(
        fmt::format("{}: {}: attribute {}; expected no attributes", origin_, one_line(path_of(data)), data.meta->name));
  }

  const std::string &origin_;
};

}  // namespace

Tree operators_tree(const Schema &schema, const lyd_node *data, const std::string &origin) {
  Tree tree(schema);
  Builder(origin).add_all(data, tree.root());
  tree.sort();
  return tree;
}

std::string path_of_instance_without(const lyd_node *data, const lysc_node &wanted) {
  for (const lyd_node *node = data; node != nullptr; node = node->next) {
    lyd_node *found = nullptr;
    if (node->schema == wanted.parent &&
        lyd_find_sibling_val(lyd_child(node), &wanted, nullptr, 0, &found) == LY_ENOTFOUND) {
      return path_of(*node);
    }
    std::string below = path_of_instance_without(lyd_child(node), wanted);
    if (!below.empty()) return below;
  }
  return "";
}

}  // namespace element
