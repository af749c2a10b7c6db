#include "element/datastore/lookup.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

constexpr Enumeration kTransparentLanServiceOn{1};
constexpr Enumeration kTransparentLanServiceOff{2};

std::uint32_t vlan_of(const Vpn &vpn) { return number_below(vpn.entry, {"bridge-domain", "dot1q"}).value_or(0); }

const Nodes &vpls_attachments(const Vpn &vpn) {
  return entries_below(vpn.entry, {"bridge-domain", "access-interface"});
}

const Nodes &neighbors_of(const Vpn &vpn) { return entries_below(vpn.entry, {"vfi", "neighbor"}); }

void derive_bridge_domain(Node &bridge_domain, const Vpn &vpn) {
  const bool transparent = find_below(vpn.entry, {"bridge-domain", "transparent-lan-service"}) != nullptr;
  set_named(bridge_domain, "int-vpls-bd-vlan", vlan_of(vpn));
  set_named(bridge_domain, "int-vpls-bd-tls", transparent ? kTransparentLanServiceOn : kTransparentLanServiceOff);
  if (const auto mtu = number_below(vpn.entry, {"bridge-domain", "bridge-mtu"})) {
    set_named(bridge_domain, "int-vpls-bd-mtu", *mtu);
  }
  Node &interfaces = child_named(bridge_domain, "int-vpls-ac");
  for (const Node &attachment : vpls_attachments(vpn)) {
    Node &interface = append_entry(interfaces, attachment.keys);
    const Node *encapsulation = find_below(&attachment, {"encapsulation"});
    if (encapsulation == nullptr) continue;
    derive_encapsulation(child_named(interface, "int-vpls-encap"), *encapsulation, "int-vpls-encap-untagged",
                         "int-vpls-encap-dot1q-range");
  }
}

/// The VPN with its bridge domain and its interfaces with encapsulation, nested.
void derive_vpn_with_bridge_domain(Node &vpn_list, const Vpn &vpn) {
  derive_bridge_domain(child_named(append_entry(vpn_list, {*vpn.name, vpn.id}), "int-vpls-bd"), vpn);
}

/// Which interfaces are attached to the VPN.
void derive_interfaces(Node &list, const Vpn &vpn) {
  for (const Node &attachment : vpls_attachments(vpn)) {
    append_entry(list, {*vpn.group, *vpn.name, vpn.id, attachment.keys.front()});
  }
}

/// The VPN's VLAN, 0 without one.
void derive_bridge_domain_vlan(Node &list, const Vpn &vpn) {
  set_named(append_entry(list, {*vpn.group, *vpn.name, vpn.id}), "int-vpls-bd-vlan", vlan_of(vpn));
}

/// The pseudowires of the VPN.
void derive_neighbors(Node &list, const Vpn &vpn) {
  for (const Node &neighbor : neighbors_of(vpn)) {
    Node &entry = append_entry(list, {*vpn.group, *vpn.name, vpn.id, neighbor.keys.front()});
    set_named(entry, "role", std::uint32_t{0});
    if (const auto pw_id = number_below(&neighbor, {"pw-id"})) set_named(entry, "pw-id", *pw_id);
  }
}

void derive_vpls_config(Node &list, const Vpn &vpn) { append_entry(list, {vpn.id}); }

void derive_vpls_pseudowires(Node &list, const Vpn &vpn) {
  append_pseudowires(list, PseudowireRole::vpls_neighbor, vpn, neighbors_of(vpn));
}

}  // namespace

const VpnFamily vpls_family{"/mpls/l2vpn-config/l2vpn/vpls-group",
                            "/internal/int-vpls-group",
                            "int-vpls-vpn",
                            derive_vpn_with_bridge_domain,
                            {{{"/internal/int-sub-vpls-vpn-ac", derive_interfaces},
                              {"/internal/int-sub-vpls-vpn-bd", derive_bridge_domain_vlan},
                              {"/internal/int-sub-vpls-vpn-nbr", derive_neighbors},
                              {"/KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry", derive_vpls_config},
                              {"/KZ-PWE3-MIB/pwTable/pwEntry", derive_vpls_pseudowires}}}};

}  // namespace element
