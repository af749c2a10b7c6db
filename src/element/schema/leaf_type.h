#ifndef ELEMENT_SCHEMA_LEAF_TYPE_H
#define ELEMENT_SCHEMA_LEAF_TYPE_H

#include <optional>
#include <string>
#include <string_view>

#include "element/schema/schema.h"

namespace element {

/// The value that the text gives a leaf; nothing where the data model does not allow it, by the leaf's type or by a
/// range, length or pattern of it.
std::optional<Value> allowed_value(const Schema &schema, const SchemaNode &leaf, std::string_view text);

/// The node's path in libyang's words: "/base:config/base:vlan".
std::string schema_path(const SchemaNode &node);

}  // namespace element

#endif
