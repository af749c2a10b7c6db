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

/// A changed node. A list's entries are children of one `below` node for the list. Below a created entry stand the
/// leafs it sets and the entries and containers it holds, its keys excepted; below a deleted one nothing.
struct Change {
  const SchemaNode *schema = nullptr;
  ChangeKind kind = ChangeKind::below;
  const Node *before = nullptr;  ///< in the old tree, null when created
  const Node *after = nullptr;   ///< in the new tree, null when deleted
  std::vector<Change> children;  ///< schema order; entries in key order

  bool is_entry() const;
  const std::vector<Value> &keys() const;
};

/// What leads from one tree to the other, in schema order; linear in the size of both. Both trees must be sorted,
/// share a schema and outlive the result.
Change difference(const Tree &before, const Tree &after);

/// The change at a path, or null where nothing at or below it changed.
const Change *find_change(const Change &root, const Path &path);

}  // namespace element

#endif
