#ifndef ELEMENT_EDIT_EDIT_NODES_H
#define ELEMENT_EDIT_EDIT_NODES_H

#include <optional>
#include <string_view>
#include <vector>

#include "element/edit/edit.h"
#include "element/edit/edit_model.h"
#include "element/edit/xml_node.h"

namespace element {

/// What operations the nodes of an edit have.
struct EditOperations {
  EditOperation outermost = EditOperation::merge;  ///< that of the outermost nodes; those below inherit it
  bool has_attributes = true;                      ///< nodes may have NETCONF's operation attribute, of their own
};

/// The nodes of an edit in XML as the data model has them below `parent`: each of `nodes` and what stands in it. Values
/// are checked against the data model. Nodes and attributes of other modules are passed over.
///
/// Throws InputError, as the model does, for a node that the data model has not, a value that it does not allow, an
/// entry without all of its keys, a leaf that is given twice, and an operation that NETCONF does not know.
std::vector<EditNode> edit_nodes(EditModel &model, const std::vector<XmlNode> &nodes, const SchemaNode &parent,
                                 EditOperations operations);

/// NETCONF's operation of this name; nothing for another text, and for "none", which is no operation of a node.
std::optional<EditOperation> operation_named(std::string_view name);

}  // namespace element

#endif
