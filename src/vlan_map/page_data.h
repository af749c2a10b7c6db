#ifndef VLAN_MAP_PAGE_DATA_H
#define VLAN_MAP_PAGE_DATA_H

#include <string>

#include "vlan_map/map.h"

namespace vlan_map {

/// What the page's script draws, as a JSON document that can stand in a script element:
///
///     {"lastVlan", "names": [TEXT], "ports": [PORT], "conflicts": [CONFLICT]}
///
/// A PORT has "name", "inProfile", "conflicts", "free": [[FIRST, LAST]] and "claims": [[KIND, STATUS, FIRST, LAST,
/// GROUP, VPN, CONFLICTS, PREVIOUS_FIRST, PREVIOUS_LAST]]; kind and status are numbers in the order of Claimant and
/// ChangeStatus, group and VPN indexes into "names", conflicts indexes of conflicts; the last two are there for a claim
/// that moved. A CONFLICT has "isWarning", "claims" by their numbers through all ports, "ports" and
/// "overlaps": [[PORT, FIRST, LAST]].
std::string page_data(const Map &map);

}  // namespace vlan_map

#endif
