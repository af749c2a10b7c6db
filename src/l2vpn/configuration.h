#ifndef L2VPN_CONFIGURATION_H
#define L2VPN_CONFIGURATION_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/tree.h"
#include "l2vpn/paths.h"

namespace l2vpn {

inline constexpr std::uint32_t kLastVlan = 4094;

/// VLANs of a port, both ends included. 0 stands for the frames without a tag.
struct VlanRange {
  std::uint32_t first = 0;
  std::uint32_t last = 0;

  auto operator<=>(const VlanRange &) const = default;
};

/// An access interface of a VPN: a port and what the VPN takes of it. port_claims.h tells which VLANs that are.
struct Attachment {
  std::string interface;
  std::optional<std::uint32_t> dot1q{};  ///< VPWS: its own VLAN. VPLS: none, its bridge domain has it
  bool untagged = false;                 ///< encapsulation: frames without a tag
  std::vector<VlanRange> ranges{};       ///< encapsulation: VLAN ranges; excludes `untagged`
};

/// The far end of a pseudowire.
struct Neighbor {
  std::string address;                   ///< IPv4, dotted
  std::optional<std::uint32_t> pw_id{};  ///< missing only while a configuration is put together
};

/// A VPN with all that it holds. What an operator did not set is missing.
struct Vpn {
  VpnKey key;
  std::optional<std::uint32_t> dot1q{};       ///< VPLS: VLAN of the bridge domain
  std::optional<std::uint32_t> bridge_mtu{};  ///< VPLS: bytes
  bool transparent_lan_service = false;       ///< VPLS
  std::vector<Attachment> attachments{};
  std::vector<Neighbor> neighbors{};
  std::vector<Neighbor> backup_neighbors{};  ///< VPWS

  /// The VPN's attachment on this interface, or null. Valid until `attachments` changes.
  const Attachment *find_attachment(std::string_view interface) const;
};

/// A port of a VLAN of the VLAN manager.
struct StaticMember {
  std::uint32_t vlan = 0;
  std::string interface;
};

/// An LDP interface, over which MPLS traffic leaves the element.
struct Uplink {
  std::string interface;                ///< a layer-3 interface
  std::optional<std::uint32_t> vlan{};  ///< of the layer-3 interface; missing where there is none of this name
};

/// A port of an instance of multicast snooping.
struct SnoopingInterface {
  std::int32_t instance = 0;
  std::string interface;
};

/// A service port's match of VLANs. At most one of the two leafs is set.
struct ServicePort {
  std::uint32_t number = 0;
  std::optional<std::uint32_t> vid{};
  bool any = false;
};

/// What an operator's configuration says of layer-2 VPNs and of what shares ports with them.
struct Configuration {
  std::vector<Vpn> vpns;  ///< the VPLS VPNs, then the VPWS VPNs
  std::vector<StaticMember> static_members;
  std::vector<Uplink> uplinks;
  std::vector<SnoopingInterface> snooping;
  std::vector<ServicePort> service_ports;

  /// The VPN of this key, or null. Valid until `vpns` changes.
  const Vpn *find(const VpnKey &key) const;
};

/// An attachment of a sorted tree.
Attachment read_attachment(const element::Node &access_interface);

/// The operator's nodes of a sorted tree; everything in key order, attachments, ranges and neighbours too. A number of
/// the wrong type is as good as missing; nothing is kept of the tree.
Configuration read_configuration(const element::Tree &tree);

}  // namespace l2vpn

#endif
