#ifndef ELEMENT_EDIT_EDIT_H
#define ELEMENT_EDIT_EDIT_H

#include <cstddef>
#include <string>
#include <vector>

#include "element/schema/schema.h"
#include "element/schema/value.h"

namespace element {

/// What an edit does to a node, as NETCONF defines it.
enum class EditOperation {
  none,             ///< the node is only on the way to others; it must be there
  merge,            ///< made where it is missing
  replace,          ///< made anew with what the edit gives alone
  create,           ///< made; it must not be there
  delete_existing,  ///< NETCONF's "delete": it must be there
  remove            ///< taken away where it is there
};

/// The operation's name in an edit: "delete" for delete_existing.
const char *name_of(EditOperation operation);

/// A node that an edit names. A list entry has the schema node of its list, and keys; without keys, a list is meant
/// with all its entries, which is only ever removed.
struct EditNode {
  const SchemaNode *schema = nullptr;
  EditOperation operation = EditOperation::merge;  ///< its own, or what it inherits
  std::vector<Value> keys;                         ///< entries
  Value value;                                     ///< leafs; not set where the edit gives none, as a deletion may
  std::vector<EditNode> children;
  std::size_t line = 0;  ///< where the node begins in the edit's file, from 1; 0: not known
};

/// Where an edit comes from, as errors name it.
struct EditOrigin {
  std::string file;
  std::string edit_id{};  ///< of an edit of a YANG patch; empty: none
};

/// A change of a configuration as an operator writes it.
struct Edit {
  EditOrigin origin;
  bool replaces_everything = false;  ///< what the edit gives takes the place of the whole configuration
  std::vector<EditNode> nodes;       ///< top-level nodes, in the edit's order
};

}  // namespace element

#endif
