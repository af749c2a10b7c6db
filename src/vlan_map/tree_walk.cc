#include "vlan_map/tree_walk.h"

namespace vlan_map {

std::vector<Place> entries_at(const Place &from, element::Names names) {
  element::Path path = from.path;
  const element::SchemaNode *schema = from.node->schema;
  for (const std::string_view name : names) {
    schema = schema->child(name);
    path.push_back({schema, {}});
  }
  std::vector<Place> entries;
  for (const element::Node &entry : element::entries_below(from.node, names)) {
    path.back().keys = entry.keys;
    entries.push_back({path, &entry});
  }
  return entries;
}

}  // namespace vlan_map
