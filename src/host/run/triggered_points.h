#ifndef HOST_RUN_FIRING_H
#define HOST_RUN_FIRING_H

#include <string>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/transaction.h"

namespace host {

/// A validation point that a transaction fires: its name, the node under validation and that node's value in the
/// candidate configuration.
struct TriggeredPoint {
  std::string point;
  element::Path path;
  element::Value value;
};

/// The points that a transaction fires, in schema order of the nodes that fire them. A created or modified node fires
/// the points that stand on it; the data model says of each point whether every such node fires it or the first only.
std::vector<TriggeredPoint> triggered_points(const element::Transaction &transaction);

}  // namespace host

#endif
