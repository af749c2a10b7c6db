#ifndef VLAN_MAP_CLAIMS_H
#define VLAN_MAP_CLAIMS_H

#include <vector>

#include "element/datastore/transaction.h"
#include "element/profile/profile.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// The element's ports with all claims of the running and the candidate configuration on them, and what the commit does
/// to each. Conflicts are left empty. l2vpn/port_claims.h says what a configuration claims; an attachment that takes
/// untagged frames is drawn with these alone.
std::vector<Port> find_claims(const element::Transaction &transaction, const element::Profile &profile);

}  // namespace vlan_map

#endif
