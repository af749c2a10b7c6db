#ifndef VLAN_MAP_MAP_H
#define VLAN_MAP_MAP_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnosis/finding.h"
#include "host/run/commit.h"

namespace vlan_map {

using Standing = diagnosis::ChangeStatus;

inline constexpr std::uint32_t kLastVlan = 4094;

/// VLANs of a port, both ends included. 0 stands for the frames without a tag.
struct VlanRange {
  std::uint32_t first = 0;
  std::uint32_t last = 0;

  bool operator==(const VlanRange &) const = default;
};

inline constexpr VlanRange kUntagged{0, 0};
inline constexpr VlanRange kWholePort{0, kLastVlan};

/// The two families of VPNs, and what else takes VLANs of a port.
enum class Application { vpws, vpls, vlan_manager, uplink, snooping };

/// What an application takes of a port.
struct Claim {
  Application application = Application::vpws;
  std::string group;  ///< key of the VPN's group; empty outside the VPNs
  std::string vpn;    ///< key of the VPN, VLAN of a static member, LDP interface of an uplink, snooping instance
  VlanRange vlans;    ///< in the candidate configuration; of a removed claim, in the running one
  Standing standing = Standing::unchanged;
  std::optional<VlanRange> formerly;   ///< of a changed claim: in the running configuration
  std::string path;                    ///< of the list entry that makes the claim
  std::string source;                  ///< of the leaf or VLAN range that gives the VLANs; `path` where none does
  std::vector<std::size_t> conflicts;  ///< ascending indexes
};

struct Port {
  std::string name;
  bool in_profile = false;
  std::vector<Claim> claims;           ///< by VLAN
  std::vector<std::size_t> conflicts;  ///< ascending indexes
};

/// A claim by the indexes of its port and of itself.
struct ClaimPlace {
  std::size_t port = 0;
  std::size_t claim = 0;
};

/// Where claims of a conflict meet.
struct Meeting {
  std::size_t port = 0;
  VlanRange vlans;
};

/// A message of the validation library with the claims that draw it.
struct Conflict {
  std::string message;
  std::string rule;  ///< id, for `explain`; empty for a message that the rule table does not know
  bool is_warning = false;
  bool from_device = false;        ///< the device itself says it on this commit
  bool complete = true;            ///< false: the search for its claims was ended early
  std::vector<ClaimPlace> claims;  ///< none for a message that is about no VLAN
  std::vector<std::size_t> ports;  ///< that it names, ascending indexes
  std::vector<Meeting> meetings;   ///< at most one a port
};

/// Who claims which VLAN of which port before and after a commit.
struct Map {
  std::string title;
  host::Decision decision = host::Decision::accepted;
  std::vector<Port> ports;  ///< of the profile in its order, then those that a configuration alone names
  std::vector<Conflict> conflicts;
  bool complete = true;  ///< false: there may be further conflicts
};

}  // namespace vlan_map

#endif
