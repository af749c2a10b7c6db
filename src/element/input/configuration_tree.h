#ifndef ELEMENT_INPUT_CONFIGURATION_TREE_H
#define ELEMENT_INPUT_CONFIGURATION_TREE_H

#include <libyang/libyang.h>

#include "element/datastore/tree.h"

namespace element {

/// Converts data that libyang has parsed and validated into a sorted tree; empty containers are left out.
Tree operators_tree(const Schema &schema, const lyd_node *data);

}  // namespace element

#endif
