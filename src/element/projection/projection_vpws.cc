#include "element/datastore/lookup.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

constexpr std::uint32_t kNeighbor = 0;
constexpr std::uint32_t kBackupNeighbor = 1;

const std::vector<Node> &vpws_attachments(const Vpn &vpn) { return entries_below(vpn.entry, {"access-interface"}); }

/// Whether a neighbour of the VPN has the backup neighbour's address and pseudowire identifier.
bool has_neighbor_like(const Vpn &vpn, const Node &backup) {
  const Node *neighbors = find_below(vpn.entry, {"neighbor"});
  const Node *twin = neighbors ? neighbors->find_entry(backup.keys) : nullptr;
  return twin != nullptr && number_below(twin, {"pw-id"}) == number_below(&backup, {"pw-id"});
}

void derive_tunnel(Node &list, const Vpn &vpn, const Node &neighbor, std::uint32_t role) {
  const auto *peer = std::get_if<Ipv4>(&neighbor.keys.front());
  const auto pw_id = number_below(&neighbor, {"pw-id"});
  if (peer == nullptr || !pw_id) return;
  Node &entry = append_entry(list, {*vpn.group, vpn.id, peer->word, *pw_id});
  set_named(entry, "role", role);
  set_named(entry, "vpn", *vpn.name);
}

}  // namespace

void derive_vpws_attachments(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-vpws-intf-app");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) {
      for (const Node &attachment : vpws_attachments(vpn)) {
        const std::uint32_t vlan = number_below(&attachment, {"dot1q"}).value_or(0);
        append_entry(list, {*vpn.group, *vpn.name, vpn.id, attachment.keys.front(), vlan});
      }
    }
  }
}

void derive_vpws_encapsulations(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-vpws-intf-encap");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) {
      for (const Node &attachment : vpws_attachments(vpn)) {
        Node &entry = append_entry(list, {*vpn.group, *vpn.name, vpn.id, attachment.keys.front()});
        const Node *encapsulation = find_below(&attachment, {"encapsulation"});
        if (encapsulation == nullptr) continue;
        derive_encapsulation(entry, *encapsulation, "int-vpws-encap-untagged", "int-vpws-encap-dot1q-range");
      }
    }
  }
}

// A backup neighbour has no key of its own here: one that repeats a neighbour's address and identifier is that
// neighbour's entry.
void derive_vpws_tunnels(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-vpws-tunnel-idx");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) {
      for (const Node &neighbor : entries_below(vpn.entry, {"neighbor"})) {
        derive_tunnel(list, vpn, neighbor, kNeighbor);
      }
      for (const Node &backup : entries_below(vpn.entry, {"backup-neighbor"})) {
        if (!has_neighbor_like(vpn, backup)) derive_tunnel(list, vpn, backup, kBackupNeighbor);
      }
    }
  }
}

void derive_vpws_groups(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/internal/int-vpws-group");
  for (const VpnGroup &group : groups) {
    Node &vpns = child_named(append_entry(list, {*group.name}), "int-vpws");
    for (const Vpn &vpn : group.vpns) append_entry(vpns, {*vpn.name, vpn.id});
  }
}

void derive_vpws_config_table(Tree &derived, const VpnGroups &groups) {
  Node &list = derived.put("/KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry");
  for (const VpnGroup &group : groups) {
    for (const Vpn &vpn : group.vpns) append_entry(list, {vpn.id});
  }
}

}  // namespace element
