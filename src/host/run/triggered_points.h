#ifndef HOST_RUN_FIRING_H
#define HOST_RUN_FIRING_H

#include <string>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/transaction.h"

namespace host {

/// A validation point that a transaction fires: its name, the node under validation and that node's new value.
struct TriggeredPoint {
  std::string point;
  element::Path path;
  element::Value value;
};

/// The points that fire for a transaction, in schema order of the nodes that fire them. A point that validates the
/// whole configuration fires once, for the first such node; a point on an interface fires once for each.
std::vector<TriggeredPoint> triggered_points(const element::Transaction &transaction);

}  // namespace host

#endif
