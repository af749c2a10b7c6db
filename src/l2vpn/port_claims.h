#ifndef L2VPN_PORT_CLAIMS_H
#define L2VPN_PORT_CLAIMS_H

#include <optional>
#include <string>
#include <vector>

#include "l2vpn/configuration.h"

namespace l2vpn {

inline constexpr VlanRange kUntagged{0, 0};
inline constexpr VlanRange kWholePort{0, kLastVlan};

/// Who takes VLANs of a port.
enum class Claimant { vpws, vpls, static_member, uplink, snooping };

enum class ClaimKind {
  whole_port,  ///< of an attachment without VLAN and encapsulation, and of a snooping interface
  own_vlan,    ///< a single VLAN: of the bridge domain, of a VPWS attachment, of a static member, of an uplink
  range,       ///< a VLAN range of an attachment's encapsulation
  untagged     ///< frames without a tag
};

/// What somebody takes of a port, as the validation library counts it.
struct PortClaim {
  Claimant claimant = Claimant::vpws;
  ClaimKind kind = ClaimKind::whole_port;
  std::string port;
  std::string group;  ///< of a VPN; else empty
  std::string name;   ///< of a VPN; VLAN of a static member, LDP interface of an uplink, instance of snooping
  VlanRange vlans;
  std::string path;    ///< of the list entry that makes the claim
  std::string source;  ///< of the leaf or range that gives the VLANs; `path` where none does
  /// The own VLAN of an attachment that takes untagged frames. The access rules count it beside them; the rule about
  /// static members does not.
  bool beside_untagged = false;
  /// An earlier claim of the same attachment begins at the same VLAN: its own VLAN, or the range with the lower end.
  /// The library compares this claim with the attachments before it, and none of those after it with this claim.
  bool absorbed = false;
};

/// What an attachment takes of its port by one of its leafs or ranges.
struct VlanClaim {
  ClaimKind kind = ClaimKind::whole_port;
  VlanRange vlans;
  bool beside_untagged = false;  ///< as of a PortClaim
  bool absorbed = false;         ///< as of a PortClaim
};

/// The claims of an attachment in the order of claims_of; `own_vlan` is its own, a VLAN 0 is none.
std::vector<VlanClaim> vlan_claims(const Attachment &attachment, std::optional<std::uint32_t> own_vlan);

/// The claims of one attachment of the VPN, in the order in which the library records them: untagged frames, its own
/// VLAN, its ranges in key order. Without encapsulation it takes its own VLAN, or the whole port where it has none. The
/// own VLAN is the bridge domain's for a VPLS VPN; a VLAN 0 is none.
std::vector<PortClaim> claims_of(const Vpn &vpn, const Attachment &attachment);

/// All claims of a configuration: of the VPNs in its order, of static members, of uplinks, of snooping. An uplink
/// claims the VLAN of its layer-3 interface on each static member of that VLAN.
std::vector<PortClaim> port_claims(const Configuration &configuration);

/// The VLANs that both hold, or nothing. Untagged frames are VLAN 0, which the whole port holds as well.
std::optional<VlanRange> overlap(const VlanRange &a, const VlanRange &b);

/// The VLANs of a port that both claims take, or nothing; always nothing for two ports.
std::optional<VlanRange> overlap(const PortClaim &a, const PortClaim &b);

}  // namespace l2vpn

#endif
