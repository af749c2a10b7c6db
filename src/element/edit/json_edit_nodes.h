#ifndef ELEMENT_EDIT_JSON_EDIT_NODES_H
#define ELEMENT_EDIT_JSON_EDIT_NODES_H

#include <vector>

#include "element/edit/edit_model.h"
#include "element/edit/json_node.h"

namespace element {

/// What the values of an edit in JSON do.
enum class JsonMeaning {
  values,      ///< each node is given as in a configuration
  merge_patch  ///< null removes; an array takes the place of the whole list (RFC 7396)
};

/// The nodes of an edit in JSON (RFC 7951) as the data model has them below `parent`: the members of `object`, and what
/// they hold. All have the same operation, merge in a merge patch. Values are checked against the data model. Members
/// of other modules and annotations are passed over.
///
/// Throws InputError, as the model does, for a node that the data model has not, a value that it does not allow or of
/// another JSON type, an entry without all of its keys or given twice, null where it removes nothing, and NETCONF's
/// operation as an annotation.
std::vector<EditNode> json_edit_nodes(EditModel &model, const JsonNode &object, const SchemaNode &parent,
                                      JsonMeaning meaning, EditOperation operation);

}  // namespace element

#endif
