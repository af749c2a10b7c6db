#ifndef ELEMENT_OUTPUT_DATA_TREE_H
#define ELEMENT_OUTPUT_DATA_TREE_H

#include <libyang/libyang.h>

#include <memory>

#include "element/datastore/tree.h"

namespace element {

struct FreeDataTree {
  void operator()(lyd_node *data) const { lyd_free_all(data); }
};

/// libyang's data; null where it holds nothing.
using DataTree = std::unique_ptr<lyd_node, FreeDataTree>;

/// The operator's nodes of a sorted tree for libyang, not validated; derived nodes are left out. Throws
/// std::runtime_error for a value that the data model does not allow.
DataTree data_tree(const Tree &tree);

}  // namespace element

#endif
