#ifndef VLAN_MAP_FREE_VLANS_H
#define VLAN_MAP_FREE_VLANS_H

#include <string>
#include <vector>

#include "vlan_map/map.h"

namespace vlan_map {

/// The VLANs from 1 to kLastVlan that no claim of the candidate configuration takes, in ascending spans.
std::vector<VlanRange> free_vlans(const Port &port);

/// "1-19, 21-4094", "none"; of many spans the widest, in ascending order, and how many more there are.
std::string free_text(const Port &port);

}  // namespace vlan_map

#endif
