#ifndef VLAN_MAP_COLLECTED_CLAIMS_H
#define VLAN_MAP_COLLECTED_CLAIMS_H

#include <map>
#include <string>
#include <utility>

#include "element/datastore/tree.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// What stays the same of a claim while a commit moves it to other VLANs: the list entry that makes it with the port,
/// and which of the entry's claims it is.
using ClaimIdentity = std::pair<std::string, std::string>;

struct CollectedClaim {
  std::string port;
  Claim claim;
};

/// The claims of one configuration.
std::map<ClaimIdentity, CollectedClaim> collect_claims(const element::Tree &configuration);

}  // namespace vlan_map

#endif
