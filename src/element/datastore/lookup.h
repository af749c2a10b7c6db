#ifndef ELEMENT_DATASTORE_LOOKUP_H
#define ELEMENT_DATASTORE_LOOKUP_H

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "element/datastore/tree.h"

namespace element {

/// Reading and writing by name relative to a node, for code that walks the entries of a list.
using Names = std::initializer_list<std::string_view>;

/// The node that the names lead to, or null where one of them, or `from` itself, is missing.
const Node *find_below(const Node *from, Names names);

/// The entries of the list that the names lead to; none where it is missing.
const Nodes &entries_below(const Node *from, Names names);

/// The number in the leaf that the names lead to; nothing where it is missing, negative or no number.
std::optional<std::uint32_t> number_below(const Node *from, Names names);

/// The same of a value.
std::optional<std::uint32_t> number(const Value &value);

/// The child of this name, created when missing. The name must be one of the data model: std::logic_error otherwise.
Node &child_named(Node &parent, std::string_view name);

/// Sets the leaf of this name below `parent`, under the same condition.
void set_named(Node &parent, std::string_view name, Value value);

}  // namespace element

#endif
