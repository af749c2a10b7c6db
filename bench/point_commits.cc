#include "bench/point_commits.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "bench/ports.h"
#include "bench/shapes.h"
#include "element/projection/projection.h"
#include "l2vpn/edit.h"

namespace bench {
namespace {

using element::Tree;

constexpr std::array<std::string_view, std::size(kPointCommitKinds)> kNames{"access_many_ports", "access_few_ports",
                                                                            "access_one_vpn", "peer", "membership"};

constexpr std::size_t kCountedPseudowires = 1024;
constexpr std::size_t kPseudowiresAMesh = 16;
constexpr std::size_t kMemberPorts = 64;
constexpr std::size_t kLastVlan = 4094;
constexpr const char *kUplinkPort = "uplink-1";

std::string neighbor_address(std::size_t neighbor) { return fmt::format("10.0.{}.1", neighbor); }

// By turns a VPLS VPN with a mesh of sixteen pseudowires and eight VPWS VPNs with a neighbour and its backup.
void put_pseudowire(Tree &tree, std::size_t index) {
  const std::size_t mesh = index / kPseudowiresAMesh;
  const l2vpn::Neighbor neighbor{neighbor_address(index % kPseudowiresAMesh), static_cast<std::uint32_t>(index + 1)};
  const l2vpn::VpnKey line{l2vpn::Family::vpws, "line", fmt::format("line-{:06}", index / 2)};
  if (mesh % 2 == 0) {
    l2vpn::put_neighbor(tree, {l2vpn::Family::vpls, "mesh", fmt::format("mesh-{:06}", mesh)}, neighbor);
  } else if (index % 2 == 0) {
    l2vpn::put_neighbor(tree, line, neighbor);
  } else {
    l2vpn::put_backup_neighbor(tree, line, neighbor);
  }
}

Tree pseudowires(const element::Schema &schema, std::size_t count) {
  Tree tree(schema);
  for (std::size_t index = 0; index < count; ++index) put_pseudowire(tree, index);
  return tree;
}

void shorten_pseudowire_table(Tree &derived) {
  element::Node &table = derived.put("/KZ-PWE3-MIB/pwTable/pwEntry");
  while (table.children.size() > kCountedPseudowires) table.children.pop_back();
}

PointCommit make_peer_commit(const element::Schema &schema, std::size_t size) {
  element::Profile profile = element_with(0, {});
  element::Projector projector(profile);
  Tree running = pseudowires(schema, size * 9 / 10);
  Tree candidate = pseudowires(schema, size);
  projector.project(running);
  projector.project(candidate);
  shorten_pseudowire_table(running);
  shorten_pseudowire_table(candidate);
  return {std::move(profile), std::make_unique<element::Transaction>(std::move(running), std::move(candidate)),
          "vpn_peer_valp"};
}

std::size_t vlans_for(std::size_t members) { return (members + kMemberPorts - 1) / kMemberPorts; }

// Every port carries an untagged VPN and, above the members' VLANs and below the last, as many VPNs with a VLAN as
// there are members, or as there is room for.
void put_vpns(Tree &tree, std::size_t member_vlans) {
  const std::size_t room = kLastVlan - 1 - std::min(member_vlans, kLastVlan - 1);
  const std::size_t vpns = std::min(member_vlans, room);
  for (std::size_t port = 0; port < kMemberPorts; ++port) {
    const auto key = [port](std::size_t vpn) {
      return l2vpn::VpnKey{l2vpn::Family::vpws, "access", fmt::format("port-{:02}-{:04}", port, vpn)};
    };
    l2vpn::put_attachment(tree, key(0), {.interface = port_name(port), .untagged = true});
    for (std::size_t vpn = 1; vpn <= vpns; ++vpn) {
      const auto vlan = static_cast<std::uint32_t>(kLastVlan - vpn);
      l2vpn::put_attachment(tree, key(vpn), {.interface = port_name(port), .dot1q = vlan});
    }
  }
}

void put_members(Tree &tree, std::size_t members) {
  for (std::size_t index = 0; index < members; ++index) {
    const auto vlan = static_cast<std::uint32_t>(1 + index / kMemberPorts);
    l2vpn::put_static_member(tree, {vlan, port_name(index % kMemberPorts)});
  }
}

// The uplink's VLAN is the last one: members that need it leave no uplink.
Tree memberships(const element::Schema &schema, std::size_t member_vlans, std::size_t members) {
  Tree tree(schema);
  put_members(tree, members);
  put_vpns(tree, member_vlans);
  if (member_vlans < kLastVlan) {
    l2vpn::put_static_member(tree, {kLastVlan, kUplinkPort});
    l2vpn::put_uplink(tree, {"l3-uplink", kLastVlan});
  }
  return tree;
}

PointCommit make_membership_commit(const element::Schema &schema, std::size_t size) {
  element::Profile profile = element_with(kMemberPorts, {kUplinkPort});
  const std::size_t vlans = vlans_for(size);
  auto transaction =
      make_transaction(memberships(schema, vlans, size * 9 / 10), memberships(schema, vlans, size), profile);
  return {std::move(profile), std::move(transaction), "vlm_memb_valp"};
}

PointCommit make_access_commit(const element::Schema &schema, Shape shape, std::size_t size) {
  Commit commit = make_commit(schema, shape, size);
  auto transaction = make_transaction(std::move(commit.running), std::move(commit.candidate), commit.profile);
  return {std::move(commit.profile), std::move(transaction), "vpn_access_valp"};
}

}  // namespace

std::string_view name(PointCommitKind kind) { return kNames.at(static_cast<std::size_t>(kind)); }

std::optional<PointCommitKind> kind_named(std::string_view name) {
  const auto found = std::find(kNames.begin(), kNames.end(), name);
  if (found == kNames.end()) return std::nullopt;
  return static_cast<PointCommitKind>(found - kNames.begin());
}

PointCommit make_point_commit(const element::Schema &schema, PointCommitKind kind, std::size_t size) {
  switch (kind) {
    case PointCommitKind::access_many_ports:
      return make_access_commit(schema, Shape::many_ports, size);
    case PointCommitKind::access_few_ports:
      return make_access_commit(schema, Shape::few_ports, size);
    case PointCommitKind::access_one_vpn:
      return make_access_commit(schema, Shape::one_vpn, size);
    case PointCommitKind::peer:
      return make_peer_commit(schema, size);
    case PointCommitKind::membership:
      break;
  }
  return make_membership_commit(schema, size);
}

}  // namespace bench
