#include "element/schema/leaf_type.h"

#include <libyang/libyang.h>

namespace element {

std::string schema_path(const SchemaNode &node) {
  return node.parent == nullptr ? "" : schema_path(*node.parent) + "/" + node.module + ":" + node.name;
}

std::optional<Value> allowed_value(const Schema &schema, const SchemaNode &leaf, std::string_view text) {
  const lysc_node *compiled = lys_find_path(schema.context(), nullptr, schema_path(leaf).c_str(), 0);
  if (compiled == nullptr) return std::nullopt;
  const char *canonical = nullptr;
  const LY_ERR result = lyd_value_validate(nullptr, compiled, text.data(), text.size(), nullptr, nullptr, &canonical);
  std::optional<Value> value;
  if (result == LY_SUCCESS) value = value_from_text(leaf, canonical == nullptr ? text : std::string_view(canonical));
  if (canonical != nullptr) lydict_remove(schema.context(), canonical);
  return value;
}

}  // namespace element
