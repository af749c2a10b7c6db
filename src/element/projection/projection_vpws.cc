#include "element/datastore/lookup.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

constexpr std::uint32_t kNeighbor = 0;
constexpr std::uint32_t kBackupNeighbor = 1;

const Nodes &vpws_attachments(const Vpn &vpn) { return entries_below(vpn.entry, {"access-interface"}); }

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

void derive_vpn(Node &vpn_list, const Vpn &vpn) { append_entry(vpn_list, {*vpn.name, vpn.id}); }

/// Which interfaces are attached to the VPN, with their VLAN, 0 without one.
void derive_interfaces_with_vlan(Node &list, const Vpn &vpn) {
  for (const Node &attachment : vpws_attachments(vpn)) {
    const std::uint32_t vlan = number_below(&attachment, {"dot1q"}).value_or(0);
    append_entry(list, {*vpn.group, *vpn.name, vpn.id, attachment.keys.front(), vlan});
  }
}

/// The encapsulation of each attachment; its entry is there without one, too.
void derive_encapsulations(Node &list, const Vpn &vpn) {
  for (const Node &attachment : vpws_attachments(vpn)) {
    Node &entry = append_entry(list, {*vpn.group, *vpn.name, vpn.id, attachment.keys.front()});
    const Node *encapsulation = find_below(&attachment, {"encapsulation"});
    if (encapsulation == nullptr) continue;
    derive_encapsulation(entry, *encapsulation, "int-vpws-encap-untagged", "int-vpws-encap-dot1q-range");
  }
}

// A backup neighbour has no key of its own here: one that repeats a neighbour's address and identifier is that
// neighbour's entry.
void derive_tunnels(Node &list, const Vpn &vpn) {
  for (const Node &neighbor : entries_below(vpn.entry, {"neighbor"})) derive_tunnel(list, vpn, neighbor, kNeighbor);
  for (const Node &backup : entries_below(vpn.entry, {"backup-neighbor"})) {
    if (!has_neighbor_like(vpn, backup)) derive_tunnel(list, vpn, backup, kBackupNeighbor);
  }
}

void derive_vpws_config(Node &list, const Vpn &vpn) { append_entry(list, {vpn.id}); }

void derive_vpws_pseudowires(Node &list, const Vpn &vpn) {
  append_pseudowires(list, PseudowireRole::vpws_neighbor, vpn, entries_below(vpn.entry, {"neighbor"}));
  append_pseudowires(list, PseudowireRole::vpws_backup_neighbor, vpn, entries_below(vpn.entry, {"backup-neighbor"}));
}

}  // namespace

const VpnFamily vpws_family{"/mpls/l2vpn-config/l2vpn/vpws-group",
                            "/internal/int-vpws-group",
                            "int-vpws",
                            derive_vpn,
                            {{{"/internal/int-vpws-intf-app", derive_interfaces_with_vlan},
                              {"/internal/int-vpws-intf-encap", derive_encapsulations},
                              {"/internal/int-vpws-tunnel-idx", derive_tunnels},
                              {"/KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry", derive_vpws_config},
                              {"/KZ-PWE3-MIB/pwTable/pwEntry", derive_vpws_pseudowires}}}};

}  // namespace element
