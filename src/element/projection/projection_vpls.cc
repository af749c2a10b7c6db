#include "element/datastore/lookup.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

constexpr Enumeration kTransparentLanServiceOn{1};
constexpr Enumeration kTransparentLanServiceOff{2};

std::uint32_t vlan_of(const Vpn &vpn) { return number_below(vpn.entry, {"bridge-domain", "dot1q"}).value_or(0); }

const std::vector<Node> &vpls_attachments(const Vpn &vpn) {
  return entries_below(vpn.entry, {"bridge-domain", "access-interface"});
}

const std::vector<Node> &neighbors_of(const Vpn &vpn) { return entries_below(vpn.entry, {"vfi", "neighbor"}); }

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

}  // namespace

void derive_vpls_attachments(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-sub-vpls-vpn-ac");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) {
      for (const Node &attachment : vpls_attachments(vpn)) {
        append_entry(list, {*vpn.group, *vpn.name, vpn.id, attachment.keys.front()});
      }
    }
  }
}

void derive_vpls_bridge_domains(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-sub-vpls-vpn-bd");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) {
      set_named(append_entry(list, {*vpn.group, *vpn.name, vpn.id}), "int-vpls-bd-vlan", vlan_of(vpn));
    }
  }
}

void derive_vpls_neighbors(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-sub-vpls-vpn-nbr");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) {
      for (const Node &neighbor : neighbors_of(vpn)) {
        Node &entry = append_entry(list, {*vpn.group, *vpn.name, vpn.id, neighbor.keys.front()});
        set_named(entry, "role", std::uint32_t{0});
        if (const auto pw_id = number_below(&neighbor, {"pw-id"})) set_named(entry, "pw-id", *pw_id);
      }
    }
  }
}

void derive_vpls_groups(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-vpls-group");
  for (const VpnGroup &group : groups) {
    Node &entry = append_entry(list, {*group.name});
    Node &vpns = child_named(entry, "int-vpls-vpn");
    for (const Vpn &vpn : group.vpns) {
      derive_bridge_domain(child_named(append_entry(vpns, {*vpn.name, vpn.id}), "int-vpls-bd"), vpn);
    }
  }
}

void derive_vpls_config_table(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) append_entry(list, {vpn.id});
  }
}

}  // namespace element
