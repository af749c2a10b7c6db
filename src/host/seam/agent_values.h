#ifndef HOST_SEAM_AGENT_VALUES_H
#define HOST_SEAM_AGENT_VALUES_H

#include <cstddef>
#include <optional>
#include <string_view>

#include "confd_lib.h"
#include "element/schema/schema.h"
#include "element/schema/value.h"

namespace host {

/// The tag under which a node's name goes over the seam.
inline confd_value_t tag_of(const element::SchemaNode &node) {
  confd_value_t value{};
  value.type = C_XMLTAG;
  value.val.xmltag = {node.tag, node.module_tag};
  return value;
}

inline confd_value_t no_value() {
  confd_value_t value{};
  value.type = C_NOEXISTS;
  return value;
}

/// The leaf of a list's key; of its last key for those that a hand-written entry has too many.
const element::SchemaNode &key_leaf(const element::SchemaNode &list, std::size_t key);

/// The value as it goes over the seam, its text still the tree's: valid as long as the tree, never to be freed. An
/// empty leaf is its node's tag.
confd_value_t borrowed_value(const element::Value &value, const element::SchemaNode &leaf);

/// Text as it goes over the seam, still its owner's.
confd_value_t borrowed_text(std::string_view text);

/// As lent, with a copy of the text, which the caller of the seam owns and gives back through confd_free_value; it is
/// entered in the active element's account.
confd_value_t owned_value(const element::Value &value, const element::SchemaNode &leaf);

/// The element's form of a value that came over the seam, or nothing for a type that the element does not serve.
std::optional<element::Value> from_agent(const confd_value_t &value);

/// The type that a value of this leaf has on the seam.
confd_vtype agent_type(const element::SchemaNode &leaf);

/// Orders a key that came over the seam against one of a tree, as element::compare does.
int compare(const confd_value_t &wanted, const element::Value &key);

}  // namespace host

#endif
