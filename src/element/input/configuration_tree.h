#ifndef ELEMENT_INPUT_CONFIGURATION_TREE_H
#define ELEMENT_INPUT_CONFIGURATION_TREE_H

#include <libyang/libyang.h>

#include <string>

#include "element/datastore/tree.h"

namespace element {

/// Converts data that libyang has parsed and validated into a sorted tree; empty containers are left out. Throws
/// InputError, which names `origin` as the file, if a node has an attribute, because no attribute has a meaning here.
Tree operators_tree(const Schema &schema, const lyd_node *data, const std::string &origin);

/// The data path of the first instance of the parent of `wanted` that lacks a child `wanted`; empty if none lacks it.
std::string path_of_instance_without(const lyd_node *data, const lysc_node &wanted);

}  // namespace element

#endif
