#include "element/output/configuration_writer.h"

#include <fmt/format.h>
#include <libyang/libyang.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <stdexcept>

namespace element {
namespace {

// The most keys that a list of the data model may have.
constexpr std::size_t kMostKeys = 4;

constexpr const char *kEmptyXml = "<config xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"/>\n";

struct FreePrinted {
  void operator()(char *text) const { free(text); }
};

struct FreeTree {
  void operator()(lyd_node *data) const { lyd_free_all(data); }
};

/// The value as a file has it: an enumeration by its name.
std::string file_text(const SchemaNode &leaf, const Value &value) {
  const auto *enumeration = std::get_if<Enumeration>(&value);
  if (enumeration == nullptr) return to_text(value);
  const auto found = std::find_if(leaf.enumerators.begin(), leaf.enumerators.end(),
                                  [&](const auto &enumerator) { return enumerator.second == enumeration->number; });
  return found == leaf.enumerators.end() ? to_text(value) : found->first;
}

class TreeWriter {
 public:
  explicit TreeWriter(const Schema &schema) : context_(schema.context()) {}

  void add_all(const Nodes &nodes, lyd_node *parent) {
    for (const Node &node : nodes) {
      if (!node.schema->derived) add(node, parent);
    }
  }

  const lyd_node *first() const { return top_.get(); }

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
  std::unique_ptr<lyd_node, FreeTree> top_;
};

}  // namespace

std::string write_configuration(const Tree &tree, InputFormat format) {
  TreeWriter writer(tree.schema());
  writer.add_all(tree.root().children, nullptr);
  if (writer.first() == nullptr) return format == InputFormat::xml ? kEmptyXml : "{}\n";
  char *text = nullptr;
  const LYD_FORMAT printed = format == InputFormat::xml ? LYD_XML : LYD_JSON;
  if (lyd_print_mem(&text, writer.first(), printed, LYD_PRINT_WITHSIBLINGS) != LY_SUCCESS) throw std::bad_alloc();
  const std::unique_ptr<char, FreePrinted> owner(text);
  return text;
}

}  // namespace element
