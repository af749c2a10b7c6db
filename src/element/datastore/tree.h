#ifndef ELEMENT_DATASTORE_TREE_H
#define ELEMENT_DATASTORE_TREE_H

#include <initializer_list>
#include <string_view>
#include <vector>

#include "element/datastore/nodes.h"
#include "element/schema/schema.h"
#include "element/schema/value.h"

namespace element {

/// An instance of a schema node. A list is one node without keys whose children are its entries; an entry has the
/// list's schema node and its keys. Key leafs stand in `keys` only, never among the children.
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

/// A datastore's content. Built in any order, then put in order once with sort(); read-only from then on, so that
/// pointers to its nodes stay valid as long as the tree lives unmoved. Copies share their nodes.
class Tree {
 public:
  explicit Tree(const Schema &schema);

  const Schema &schema() const { return *schema_; }
  const Node &root() const { return root_; }
  Node &root() { return root_; }

  /// Finds or creates what a path of names with keys leads to, and all above it; sets the value when it is a leaf (a
  /// leaf of type empty needs none). Keys in braces, typed by the schema; see parse_path for the form. A hand-written
  /// tree is a row of these. Throws PathError.
  Node &put(std::string_view path, Value value = {});

  /// As put for a list's entry, with keys of any type and number, past the schema.
  Node &put_entry(std::string_view list_path, std::vector<Value> keys);

  /// Removes what the path leads to; does nothing when it is not there.
  void erase(std::string_view path);

  /// The node at a path, or null; also null for a key leaf, which stands with its entry. Throws PathError.
  const Node *find(std::string_view path) const;

  /// Puts every list in key order and every container's children in schema order. Linear for what is in order.
  void sort();

  /// Puts the entries of one list in key order. Throws PathError.
  void sort_list(std::string_view path);

 private:
  const Schema *schema_;
  Node root_;
};

/// The child of `parent` for `child_schema`, created at its place when missing. Returned references are valid until the
/// child is removed or the tree is copied.
Node &child(Node &parent, const SchemaNode &child_schema);

/// The entry of a sorted list with these keys, created at its place when missing. Valid as the above.
Node &put_entry(Node &list, std::vector<Value> keys);

/// Appends an entry without looking for its place or for a twin: for builders that sort once at the end.
Node &append_entry(Node &list, std::vector<Value> keys);

/// Has `tree` share with `other` every subtree that is the same in both, so that comparing the two is quick. Both must
/// be sorted and have the same schema; neither changes its content.
void share_equal_subtrees(Tree &tree, const Tree &other);

/// Sets a leaf below `parent`.
void set_leaf(Node &parent, const SchemaNode &leaf, Value value);

}  // namespace element

#endif
