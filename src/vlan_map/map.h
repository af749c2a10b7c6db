#ifndef VLAN_MAP_MAP_H
#define VLAN_MAP_MAP_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "diagnosis/finding.h"
#include "host/run/commit.h"
#include "l2vpn/port_claims.h"
#include "report/finding.h"

namespace vlan_map {

using diagnosis::ChangeStatus;
using l2vpn::Claimant;
using l2vpn::kLastVlan;
using l2vpn::kUntagged;
using l2vpn::kWholePort;
using l2vpn::VlanRange;

/// What a claimant takes of a port, before and after a commit.
struct Claim {
  Claimant claimant = Claimant::vpws;
  std::string group;  ///< key of the VPN's group; empty for other claimants
  std::string vpn;    ///< key of the VPN, VLAN of a static member, LDP interface of an uplink, snooping instance
  VlanRange vlans;    ///< in the candidate configuration; of a removed claim, in the running one
  ChangeStatus status = ChangeStatus::unchanged;
  std::optional<VlanRange> previous_vlans;  ///< of a changed claim: in the running configuration
  std::string path;                         ///< of the list entry that makes the claim
  std::string source;                       ///< of the leaf or VLAN range that gives the VLANs; `path` if none does
  std::optional<report::FilePlace> place;   ///< of `source` in its file
  std::vector<std::size_t> conflicts;       ///< indexes into Map::conflicts, ascending
};

struct Port {
  std::string name;
  bool in_profile = false;
  std::vector<Claim> claims;           ///< by VLAN
  std::vector<std::size_t> conflicts;  ///< indexes into Map::conflicts, ascending
};

/// A claim by the indexes of its port and of itself.
struct ClaimPlace {
  std::size_t port = 0;
  std::size_t claim = 0;
};

/// VLANs of a port that all claims of a conflict on the port share.
struct Overlap {
  std::size_t port = 0;
  VlanRange vlans;
};

/// A message of the validation library with the claims that cause it. Those of entries that only make the library look
/// at what is in force are no part of it.
struct Conflict {
  report::Finding finding;
  std::vector<std::vector<ClaimPlace>> by_party;  ///< for each of the finding's parties the claims at odds, ascending
  std::vector<ClaimPlace> claims;                 ///< all of them, ascending; empty if the message is about no VLAN
  std::vector<std::size_t> ports;                 ///< indexes of the ports that it names, ascending
  std::vector<Overlap> overlaps;                  ///< at most one a port
};

/// Who claims which VLAN of which port before and after a commit.
struct Map {
  std::string title;
  host::Decision decision = host::Decision::accepted;
  std::vector<Port> ports;  ///< those of the profile in its order, then others that a configuration names
  std::vector<Conflict> conflicts;
  std::string advice;                ///< what to take back for the whole commit to be accepted; empty for nothing more
  bool complete = true;              ///< false: there may be further conflicts
  std::vector<std::string> notices;  ///< sentences on what the verdict may have missed; none in an ordinary commit
};

}  // namespace vlan_map

#endif
