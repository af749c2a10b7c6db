#ifndef VLAN_MAP_CONFLICTS_H
#define VLAN_MAP_CONFLICTS_H

#include <vector>

#include "diagnosis/finding.h"
#include "host/run/commit.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// The messages of the device's verdict and of the diagnosis, each with the claims that draw it; marks these claims and
/// the ports. A message that no fault of the diagnosis explains is about no claim.
std::vector<Conflict> find_conflicts(const host::Verdict &verdict, const diagnosis::Diagnosis &diagnosis,
                                     std::vector<Port> &ports);

}  // namespace vlan_map

#endif
