#ifndef ELEMENT_DATASTORE_LOOKUP_H
#define ELEMENT_DATASTORE_LOOKUP_H

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "element/datastore/tree.h"

namespace element {

/// The names of nodes on the way down from some node, for code that reads or writes below each entry of a list.
using Names = std::initializer_list<std::string_view>;

/// The node reached from `from` by these names, or null if one of them is missing or `from` is null.
const Node *find_below(const Node *from, Names names);

/// The entries of the list reached by these names; empty if the list is missing.
const Nodes &entries_below(const Node *from, Names names);

/// The number in the leaf reached by these names; nothing if the leaf is missing or its value is negative, above 32
/// bits or no number.
std::optional<std::uint32_t> number_below(const Node *from, Names names);

/// The value as a number, under the same conditions.
std::optional<std::uint32_t> number(const Value &value);

/// The child of this name, created if it is missing. Throws std::logic_error if the data model has no such child.
Node &child_named(Node &parent, std::string_view name);

/// Sets the leaf of this name below `parent`. Throws std::logic_error if the data model has no such child.
void set_named(Node &parent, std::string_view name, Value value);

}  // namespace element

#endif
