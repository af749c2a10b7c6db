#ifndef VLAN_MAP_TREE_WALK_H
#define VLAN_MAP_TREE_WALK_H

#include <string>
#include <vector>

#include "element/datastore/lookup.h"
#include "element/datastore/path.h"
#include "element/datastore/tree.h"

namespace vlan_map {

/// A node of a tree and where it stands.
struct Place {
  element::Path path;
  const element::Node *node = nullptr;

  std::string text() const { return element::to_text(path); }
  std::string key() const { return element::to_text(node->keys.front()); }
};

/// The entries of the list that the names lead to from a place; none where it is missing.
std::vector<Place> entries_at(const Place &from, element::Names names);

}  // namespace vlan_map

#endif
