#ifndef ELEMENT_EDIT_EDIT_NODES_H
#define ELEMENT_EDIT_EDIT_NODES_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "element/edit/edit.h"
#include "element/edit/xml_node.h"
#include "element/input/foreign_nodes.h"
#include "element/input/own_configuration.h"

namespace element {

/// The nodes of an edit as the data model has them: each of `nodes` and what stands in it, with its operation attribute
/// or, without one, the operation of the node around it; at the top `operation`. Values are checked against the data
/// model. Nodes and attributes of other modules are passed over and counted in `passed_over`.
///
/// Throws InputError, which names `origin`, line and path, for a node that the data model has not, a value that it does
/// not allow, an entry without all of its keys, an operation that NETCONF does not know, and, where the options refuse
/// them, a node of another module.
std::vector<EditNode> edit_nodes(const Schema &schema, const std::vector<XmlNode> &nodes, EditOperation operation,
                                 const std::string &origin, const ReadOptions &options, ForeignNodes &passed_over);

/// NETCONF's operation of this name; nothing for another text, and for "none", which is no operation of a node.
std::optional<EditOperation> operation_named(std::string_view name);

}  // namespace element

#endif
