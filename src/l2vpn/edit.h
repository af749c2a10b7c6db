#ifndef L2VPN_EDIT_H
#define L2VPN_EDIT_H

#include <cstdint>
#include <optional>
#include <string_view>

#include "l2vpn/configuration.h"

namespace l2vpn {

// Writes into a sorted tree of operator's nodes and keeps it sorted.
//
// put_... adds what is missing, with all that stands around it, and sets the leafs that its argument has; leafs and
// entries that the argument does not have stay. A VLAN, number or address that its leaf's type cannot hold throws
// std::invalid_argument. erase_... removes an entry with all that it holds and does nothing where there is none; what
// stands around it stays.

/// The VPN of this key, empty if it is not there yet.
void ensure_vpn(element::Tree &tree, const VpnKey &key);
/// The VPN with its leafs, attachments and neighbours.
void put_vpn(element::Tree &tree, const Vpn &vpn);
void erase_vpn(element::Tree &tree, const VpnKey &key);

void put_attachment(element::Tree &tree, const VpnKey &vpn, const Attachment &attachment);
void erase_attachment(element::Tree &tree, const VpnKey &vpn, std::string_view interface);
/// All attachments of the VPN.
void erase_attachments(element::Tree &tree, const VpnKey &vpn);

void put_neighbor(element::Tree &tree, const VpnKey &vpn, const Neighbor &neighbor);
void erase_neighbor(element::Tree &tree, const VpnKey &vpn, std::string_view address);
void put_backup_neighbor(element::Tree &tree, const VpnKey &vpws_vpn, const Neighbor &neighbor);
void erase_backup_neighbor(element::Tree &tree, const VpnKey &vpws_vpn, std::string_view address);

/// The VLAN of a VPLS VPN's bridge domain; without a value it is removed.
void set_dot1q(element::Tree &tree, const VpnKey &vpls_vpn, std::optional<std::uint32_t> vlan);
/// The MTU of a VPLS VPN's bridge domain in bytes; without a value it is removed.
void set_bridge_mtu(element::Tree &tree, const VpnKey &vpls_vpn, std::optional<std::uint32_t> bytes);
void set_transparent_lan_service(element::Tree &tree, const VpnKey &vpls_vpn, bool is_on);

void put_static_member(element::Tree &tree, const StaticMember &member);
void erase_static_member(element::Tree &tree, const StaticMember &member);

/// The LDP interface and, where the uplink has a VLAN, its layer-3 interface.
void put_uplink(element::Tree &tree, const Uplink &uplink);
/// The LDP interface; a layer-3 interface stays.
void erase_uplink(element::Tree &tree, std::string_view interface);

void put_snooping_interface(element::Tree &tree, const SnoopingInterface &snooping);
void erase_snooping_interface(element::Tree &tree, const SnoopingInterface &snooping);

void put_service_port(element::Tree &tree, const ServicePort &port);
void erase_service_port(element::Tree &tree, std::uint32_t number);

/// A tree that holds the configuration and nothing else.
element::Tree make_tree(const element::Schema &schema, const Configuration &configuration);

}  // namespace l2vpn

#endif
