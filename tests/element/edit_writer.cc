#include "edit_writer.h"

#include <fmt/format.h>
#include <libyang/libyang.h>

#include <memory>
#include <new>
#include <stdexcept>

#include "element/input/netconf_names.h"
#include "element/output/value_text.h"

namespace element {
namespace {

struct FreeEditText {
  void operator()(char *text) const { free(text); }
};

struct FreeOpaque {
  void operator()(lyd_node *data) const { lyd_free_all(data); }
};

using OpaqueData = std::unique_ptr<lyd_node, FreeOpaque>;

// The nodes are opaque to libyang: a deletion has no value that the data model would allow.
class EditWriter {
 public:
  explicit EditWriter(const Schema &schema) : context_(schema.context()) {}

  OpaqueData run(const Edit &edit) const {
    lyd_node *config = nullptr;
    require(lyd_new_opaq2(nullptr, context_, "config", nullptr, nullptr, kNetconfNamespace.data(), &config));
    OpaqueData owner(config);
    for (const EditNode &node : edit.nodes) add(node, EditOperation::merge, *config);
    return owner;
  }

 private:
  void add(const EditNode &node, EditOperation around, lyd_node &parent) const {
    const SchemaNode &schema = *node.schema;
    const std::string text = file_text(schema, node.value);
    lyd_node *data = new_node(schema, text, parent);
    const EditOperation own = node.operation == EditOperation::none ? EditOperation::merge : node.operation;
    if (own != around) add_operation(*data, own);
    for (std::size_t i = 0; i < node.keys.size(); ++i) {
      const SchemaNode &key = *schema.children[i];
      new_node(key, file_text(key, node.keys[i]), *data);
    }
    for (const EditNode &below : node.children) add(below, own, *data);
  }

  lyd_node *new_node(const SchemaNode &schema, const std::string &text, lyd_node &parent) const {
    const lys_module *module = ly_ctx_get_module_implemented(context_, schema.module.c_str());
    lyd_node *data = nullptr;
    require(lyd_new_opaq2(&parent, context_, schema.name.c_str(), text.c_str(), nullptr, module->ns, &data));
    return data;
  }

  void add_operation(lyd_node &data, EditOperation operation) const {
    require(lyd_new_attr2(&data, kNetconfNamespace.data(), "nc:operation", name_of(operation), nullptr));
  }

  void require(LY_ERR result) const {
    if (result == LY_EMEM) throw std::bad_alloc();
    if (result != LY_SUCCESS) throw std::runtime_error(fmt::format("edit: cannot be written: {}", ly_errmsg(context_)));
  }

  const ly_ctx *context_;
};

}  // namespace

std::string write_edit(const Schema &schema, const Edit &edit) {
  const OpaqueData data = EditWriter(schema).run(edit);
  char *text = nullptr;
  if (lyd_print_mem(&text, data.get(), LYD_XML, 0) != LY_SUCCESS) throw std::bad_alloc();
  const std::unique_ptr<char, FreeEditText> owner(text);
  return text;
}

}  // namespace element
