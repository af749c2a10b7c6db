#ifndef ELEMENT_DATASTORE_DIFFERENCE_H
#define ELEMENT_DATASTORE_DIFFERENCE_H

#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/tree.h"

namespace element {

enum class ChangeKind {
  below,     ///< a container, list or the root: nothing itself, but something below it changed
  created,   ///< list entry, presence container or leaf of type empty
  deleted,   ///< the same, or an optional leaf that was removed
  modified,  ///< list entry with a change somewhere below it
  value_set  ///< leaf: new or other value
};

/// A changed node. The changed entries of a list are the children of one change of kind `below` for the list. A created
/// entry has all its leafs, containers and entries as children, but not its keys; a deleted entry has no children.
struct Change {
  const SchemaNode *schema = nullptr;
  ChangeKind kind = ChangeKind::below;
  const Node *before = nullptr;  ///< in the old tree, null when created
  const Node *after = nullptr;   ///< in the new tree, null when deleted
  std::vector<Change> children;  ///< schema order; entries in key order

  bool is_entry() const;
  const std::vector<Value> &keys() const;
};

/// The changes that turn `before` into `after`, as a tree below the root, in schema order. Preconditions: both trees
/// are sorted, have the same schema and outlive the result. Time is linear in their size.
Change difference(const Tree &before, const Tree &after);

/// The change at a path, or null if neither that node nor one below it changed.
const Change *find_change(const Change &root, const Path &path);

}  // namespace element

#endif
