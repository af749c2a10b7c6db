#ifndef ELEMENT_INPUT_CONFIGURATION_TREE_H
#define ELEMENT_INPUT_CONFIGURATION_TREE_H

#include <libyang/libyang.h>

#include <string>

#include "element/datastore/tree.h"

namespace element {

/// The tree for data that libyang has parsed and validated, sorted, without containers that hold nothing. Throws
/// InputError, with `origin` for the file's name, where a node carries an attribute: none has a meaning here.
Tree operators_tree(const Schema &schema, const lyd_node *data, const std::string &origin);

/// The data path of the first instance of the node above `wanted` that has no instance of `wanted`, or empty.
std::string path_of_instance_without(const lyd_node *data, const lysc_node &wanted);

}  // namespace element

#endif
