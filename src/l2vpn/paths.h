#ifndef L2VPN_PATHS_H
#define L2VPN_PATHS_H

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace l2vpn {

/// Names of the nodes that an operator writes, as the element's modules have them.
namespace name {
inline constexpr std::string_view mpls = "mpls";
inline constexpr std::string_view l2vpn_config = "l2vpn-config";
inline constexpr std::string_view l2vpn = "l2vpn";
inline constexpr std::string_view vpls_group = "vpls-group";
inline constexpr std::string_view vpws_group = "vpws-group";
inline constexpr std::string_view vpn = "vpn";
inline constexpr std::string_view vfi = "vfi";
inline constexpr std::string_view neighbor = "neighbor";
inline constexpr std::string_view backup_neighbor = "backup-neighbor";
inline constexpr std::string_view pw_id = "pw-id";
inline constexpr std::string_view bridge_domain = "bridge-domain";
inline constexpr std::string_view bridge_mtu = "bridge-mtu";
inline constexpr std::string_view transparent_lan_service = "transparent-lan-service";
inline constexpr std::string_view access_interface = "access-interface";
inline constexpr std::string_view dot1q = "dot1q";
inline constexpr std::string_view encapsulation = "encapsulation";
inline constexpr std::string_view untagged = "untagged";
inline constexpr std::string_view dot1q_range = "dot1q-range";
inline constexpr std::string_view ldp = "ldp";
inline constexpr std::string_view config = "config";
inline constexpr std::string_view vlan = "vlan";
inline constexpr std::string_view interface = "interface";
inline constexpr std::string_view l3_interface = "l3-interface";
inline constexpr std::string_view igmp_snooping = "igmp-snooping";
inline constexpr std::string_view service_port = "service-port";
inline constexpr std::string_view match = "match";
inline constexpr std::string_view vlan_id = "vlan-id";
inline constexpr std::string_view vid = "vid";
inline constexpr std::string_view any = "any";
}  // namespace name

/// VPLS: a bridged service with many attachments. VPWS: a line between two.
enum class Family { vpls, vpws };

/// "vpls-group" or "vpws-group".
std::string_view group_list(Family family);

/// Names a VPN; it need not be configured.
struct VpnKey {
  Family family = Family::vpls;
  std::string group;
  std::string name;

  auto operator<=>(const VpnKey &) const = default;
};

/// "vpls-group campus vpn data", as the messages of the validation library name it.
std::string to_text(const VpnKey &vpn);

// Paths as text that element::Tree reads, keys quoted where they need it.

std::string group_path(Family family, std::string_view group);
std::string vpn_path(const VpnKey &vpn);
std::string bridge_domain_path(const VpnKey &vpls_vpn);
/// The leaf that gives the VPN's attachment on this interface its own VLAN: of the bridge domain for a VPLS VPN, of the
/// attachment for a VPWS VPN.
std::string own_vlan_path(const VpnKey &vpn, std::string_view interface);
/// The list of the VPN's attachments.
std::string attachment_list_path(const VpnKey &vpn);
std::string attachment_path(const VpnKey &vpn, std::string_view interface);
std::string untagged_path(const VpnKey &vpn, std::string_view interface);
std::string range_path(const VpnKey &vpn, std::string_view interface, std::uint32_t first, std::uint32_t last);
std::string neighbor_path(const VpnKey &vpn, std::string_view address);
std::string backup_neighbor_path(const VpnKey &vpws_vpn, std::string_view address);
std::string static_member_path(std::uint32_t vlan, std::string_view interface);
/// Of an LDP interface.
std::string uplink_path(std::string_view interface);
std::string layer3_interface_path(std::string_view interface);
std::string snooping_path(std::int32_t instance, std::string_view interface);
std::string service_port_path(std::uint32_t number);

}  // namespace l2vpn

#endif
