#ifndef HOST_RUN_FIRING_H
#define HOST_RUN_FIRING_H

#include <string>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/transaction.h"

namespace host {

class KeyPath;

/// A validation point that a transaction fires, and the node under validation. Valid as long as the transaction.
struct TriggeredPoint {
  std::string point;  ///< its name
  /// From the top down to the node, or to the entry whose key the node is. Without lists as a whole.
  std::vector<const element::Change *> changes;
  const element::SchemaNode *node = nullptr;
  const element::Value *value = nullptr;  ///< in the candidate configuration; of what has none, an empty one

  element::Path path() const;
  KeyPath key_path() const;
};

/// The points that a transaction fires, in schema order of the nodes that fire them. A created or modified node fires
/// the points that stand on it; the data model says of each point whether every such node fires it or the first only.
std::vector<TriggeredPoint> triggered_points(const element::Transaction &transaction);

}  // namespace host

#endif
