#include "element/output/data_tree.h"

#include <fmt/format.h>

#include <array>
#include <new>
#include <stdexcept>
#include <utility>

#include "element/output/value_text.h"

namespace element {
namespace {

// The most keys that a list of the data model may have.
constexpr std::size_t kMostKeys = 4;

class TreeWriter {
 public:
  explicit TreeWriter(const Schema &schema) : context_(schema.context()) {}

  void add_all(const Nodes &nodes, lyd_node *parent) {
    for (const Node &node : nodes) {
      if (!node.schema->derived) add(node, parent);
    }
  }

  DataTree take() { return std::move(top_); }

 private:
  void add(const Node &node, lyd_node *parent) {
    const SchemaNode &schema = *node.schema;
    if (schema.kind == NodeKind::list && !node.is_entry()) return add_all(node.children, parent);
    lyd_node *data = nullptr;
    if (schema.kind == NodeKind::leaf) {
      const std::string text = file_text(schema, node.value);
      require(lyd_new_term(parent, module_of(schema), schema.name.c_str(), text.c_str(), 0, &data), schema);
    } else if (schema.kind == NodeKind::list) {
      data = new_entry(node, parent);
    } else {
      require(lyd_new_inner(parent, module_of(schema), schema.name.c_str(), 0, &data), schema);
    }
    if (parent == nullptr) keep(data, schema);
    add_all(node.children, data);
  }

  lyd_node *new_entry(const Node &node, lyd_node *parent) const {
    const SchemaNode &schema = *node.schema;
    std::array<std::string, kMostKeys> keys;
    for (std::size_t i = 0; i < schema.key_count; ++i) keys.at(i) = file_text(*schema.children[i], node.keys.at(i));
    lyd_node *data = nullptr;
    // It reads as many keys as the list has.
    require(lyd_new_list(parent, module_of(schema), schema.name.c_str(), 0, &data, keys[0].c_str(), keys[1].c_str(),
                         keys[2].c_str(), keys[3].c_str()),
            schema);
    return data;
  }

  void keep(lyd_node *data, const SchemaNode &schema) {
    lyd_node *first = nullptr;
    const LY_ERR result = lyd_insert_sibling(top_.get(), data, &first);
    if (result != LY_SUCCESS) lyd_free_tree(data);
    require(result, schema);
    static_cast<void>(top_.release());
    top_.reset(first);
  }

  const lys_module *module_of(const SchemaNode &schema) const {
    return ly_ctx_get_module_implemented(context_, schema.module.c_str());
  }

  void require(LY_ERR result, const SchemaNode &schema) const {
    if (result == LY_EMEM) throw std::bad_alloc();
    if (result == LY_SUCCESS) return;
    throw std::runtime_error(fmt::format("{}: cannot be written: {}", schema.name, ly_errmsg(context_)));
  }

  const ly_ctx *context_;
  DataTree top_;
};

}  // namespace

DataTree data_tree(const Tree &tree) {
  TreeWriter writer(tree.schema());
  writer.add_all(tree.root().children, nullptr);
  return writer.take();
}

}  // namespace element
