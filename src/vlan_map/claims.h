#ifndef VLAN_MAP_CLAIMS_H
#define VLAN_MAP_CLAIMS_H

#include <vector>

#include "element/datastore/transaction.h"
#include "element/profile/profile.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// The element's ports with every claim of the running and the candidate configuration on them, without conflicts.
///
/// An attachment of a VPN claims what the validation library takes for its VLANs: with untagged encapsulation the
/// frames without a tag; with VLAN ranges these and its own VLAN; without encapsulation its own VLAN, or the whole port
/// where it has none. A static member claims its VLAN, an uplink the VLAN of its layer-3 interface on each member port
/// of that VLAN, a snooping interface the port.
std::vector<Port> find_claims(const element::Transaction &transaction, const element::Profile &profile);

}  // namespace vlan_map

#endif
