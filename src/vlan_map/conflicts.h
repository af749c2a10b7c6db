#ifndef VLAN_MAP_CONFLICTS_H
#define VLAN_MAP_CONFLICTS_H

#include <vector>

#include "report/finding.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// The findings of a commit, each with the claims that cause it; marks these claims and the ports. Of a party's claims
/// those count that meet a claim of another party, or all where none does: a range beside the one in question is
/// innocent. A finding without conflicts was not looked into and is about no claim.
std::vector<Conflict> find_conflicts(const std::vector<report::Finding> &findings, std::vector<Port> &ports);

}  // namespace vlan_map

#endif
