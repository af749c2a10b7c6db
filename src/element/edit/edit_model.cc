#include "element/edit/edit_model.h"

#include <fmt/format.h>

#include <utility>

#include "element/input/expectation.h"
#include "element/input/expected_names.h"
#include "element/input/input_text.h"
#include "element/schema/leaf_type.h"

namespace element {

bool is_deletion(EditOperation operation) {
  return operation == EditOperation::delete_existing || operation == EditOperation::remove;
}

bool is_key(const SchemaNode &node) {
  return node.parent->kind == NodeKind::list && node.position < node.parent->key_count;
}

EditModel::EditModel(const Schema &schema, InputFormat format, EditOrigin origin, const ReadOptions &options,
                     ForeignNodes &passed_over)
    : schema_(schema), format_(format), origin_(std::move(origin)), options_(options), passed_over_(passed_over) {}

const SchemaNode *EditModel::child(const SchemaNode &parent, const EditName &name) const {
  const bool is_xml = format_ == InputFormat::xml;
  const Module *module = is_xml ? schema_.find_namespace(name.module) : schema_.find_module(name.module);
  if (module == nullptr && !name.module.empty()) {
    if (options_.refuse_foreign) fail(name.line, foreign_fault(name.name, name.module, format_), kOwnNodesAlone);
    return nullptr;
  }
  return &own_child(parent, module, name, format_);
}

const SchemaNode &EditModel::own_child(const SchemaNode &parent, const Module *module, const EditName &name,
                                       InputFormat format) const {
  const SchemaNode *schema = module == nullptr ? nullptr : parent.child(fmt::format("{}:{}", module->name, name.name));
  if (schema == nullptr) {
    fail(name.line, fmt::format("node {} is not in the data model there", one_line(name.name)),
         names_below(schema_, parent, format));
  }
  if (schema->derived) {
    fail(name.line, fmt::format("node {} is written by the element itself", schema->name), "what an operator writes");
  }
  return *schema;
}

void EditModel::count_foreign(std::string_view module, std::size_t line) {
  passed_over_.count(module, [line] { return line; });
}

Value EditModel::value(const SchemaNode &leaf, std::string_view text, std::size_t line) const {
  std::optional<Value> value = allowed_value(schema_, leaf, text);
  if (value) return std::move(*value);
  Path path = path_;
  if (path.empty() || path.back().schema != &leaf) path.push_back({&leaf, {}});
  throw edit_fault(origin_, line, path, fmt::format("value \"{}\"", text), expected_instead(schema_, &leaf, {}));
}

void EditModel::fail(std::size_t line, const std::string &what, const std::string &expected) const {
  throw edit_fault(origin_, line, path_, what, expected);
}

}  // namespace element
