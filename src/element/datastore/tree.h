#ifndef ELEMENT_DATASTORE_TREE_H
#define ELEMENT_DATASTORE_TREE_H

#include <initializer_list>
#include <string_view>
#include <vector>

#include "element/datastore/nodes.h"
#include "element/schema/schema.h"
#include "element/schema/value.h"

namespace element {

/// An instance of a schema node. A list is one node without keys whose children are its entries. An entry has the
/// schema node of its list, and keys. Key leafs are in `keys` only, never among the children.
struct Node {
  const SchemaNode *schema = nullptr;
  std::vector<Value> keys;  ///< entries
  Value value;              ///< leafs
  Nodes children;           ///< containers and entries: by schema position; lists: entries in key order

  bool is_entry() const { return !keys.empty(); }

  /// The child that is an instance of `child_schema`, or null.
  const Node *find(const SchemaNode &child_schema) const;

  /// Lists: the entry with exactly these keys, or null.
  const Node *find_entry(const std::vector<Value> &entry_keys) const;
};

/// Orders two lists of keys: first key first, fewer keys before more.
int compare_keys(const std::vector<Value> &a, const std::vector<Value> &b);

/// The content of a datastore. Nodes are added in any order, then sorted once with sort(). Pointers to nodes are valid
/// until the tree is changed, moved or destroyed. Copies share their nodes. The schema must outlive the tree.
class Tree {
 public:
  explicit Tree(const Schema &schema);

  const Schema &schema() const { return *schema_; }
  const Node &root() const { return root_; }
  Node &root() { return root_; }

  /// Finds or creates the node at a path (see parse_path) and its ancestors. Sets the value if the node is a leaf; a
  /// leaf of type empty needs no value. Throws PathError.
  Node &put(std::string_view path, Value value = {});

  /// Finds or creates an entry of the list at a path. Type and number of the keys are not checked against the schema,
  /// so that tests can write a broken data model. Throws PathError.
  Node &put_entry(std::string_view list_path, std::vector<Value> keys);

  /// Removes the node at a path with all below it; does nothing if there is none. Throws PathError.
  void erase(std::string_view path);

  /// The node at a path, or null. Always null for a key leaf, because keys are no nodes. Throws PathError.
  const Node *find(std::string_view path) const;

  /// Sorts every list by its keys and the children of every container in schema order. Time is linear if the tree is
  /// sorted already.
  void sort();

  /// Sorts the entries of one list by their keys. Throws PathError.
  void sort_list(std::string_view path);

 private:
  const Schema *schema_;
  Node root_;
};

/// The child of `parent` for `child_schema`, created in schema order if it is missing. The reference is valid until the
/// child is removed or the tree is copied.
Node &child(Node &parent, const SchemaNode &child_schema);

/// The entry of a sorted list with these keys, created in key order if it is missing. The reference is valid as long as
/// that of child().
Node &put_entry(Node &list, std::vector<Value> keys);

/// Removes the child of `parent` for `child_schema` with all below it; does nothing if there is none.
void erase_child(Node &parent, const SchemaNode &child_schema);

/// Removes the entry of a sorted list with these keys; does nothing if there is none.
void erase_entry(Node &list, const std::vector<Value> &keys);

/// Appends an entry without searching for its position or for an entry with the same keys. For code that sorts the list
/// once at the end.
Node &append_entry(Node &list, std::vector<Value> keys);

/// Makes `tree` share with `other` every subtree that is equal in both, so that comparing the two trees is quick. The
/// content of neither changes. Preconditions: both are sorted and have the same schema.
void share_equal_subtrees(Tree &tree, const Tree &other);

/// Sets a leaf below `parent`.
void set_leaf(Node &parent, const SchemaNode &leaf, Value value);

}  // namespace element

#endif
