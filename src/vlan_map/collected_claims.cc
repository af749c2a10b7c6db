#include "vlan_map/collected_claims.h"

#include <fmt/format.h>

#include <optional>

#include "vlan_map/tree_walk.h"

namespace vlan_map {
namespace {

using element::number_below;

constexpr const char *kOwnVlan = "own";

/// The VLAN that a VPN has on its access interfaces beside their encapsulation.
struct OwnVlan {
  std::optional<std::uint32_t> id;
  std::string leaf;
};

Claim claim_of(Application application, std::string group, std::string vpn, const Place &entry) {
  Claim claim;
  claim.application = application;
  claim.group = std::move(group);
  claim.vpn = std::move(vpn);
  claim.path = entry.text();
  return claim;
}

class Collector {
 public:
  explicit Collector(const element::Tree &configuration) : root_{{}, &configuration.root()} {}

  std::map<ClaimIdentity, CollectedClaim> collect() {
    collect_vpls();
    collect_vpws();
    collect_static_members();
    collect_uplinks();
    collect_snooping();
    return std::move(claims_);
  }

 private:
  void add(const std::string &port, Claim claim, VlanRange vlans, const std::string &source, const std::string &part) {
    claim.vlans = vlans;
    claim.source = source;
    ClaimIdentity identity{claim.path, part};
    claims_.insert_or_assign(std::move(identity), CollectedClaim{port, std::move(claim)});
  }

  void collect_vpls() {
    for (const Place &group : entries_at(root_, {"mpls", "l2vpn-config", "l2vpn", "vpls-group"})) {
      for (const Place &vpn : entries_at(group, {"vpn"})) {
        const OwnVlan own{number_below(vpn.node, {"bridge-domain", "dot1q"}), vpn.text() + "/bridge-domain/dot1q"};
        for (const Place &attachment : entries_at(vpn, {"bridge-domain", "access-interface"})) {
          collect_attachment(claim_of(Application::vpls, group.key(), vpn.key(), attachment), attachment, own);
        }
      }
    }
  }

  void collect_vpws() {
    for (const Place &group : entries_at(root_, {"mpls", "l2vpn-config", "l2vpn", "vpws-group"})) {
      for (const Place &vpn : entries_at(group, {"vpn"})) {
        for (const Place &attachment : entries_at(vpn, {"access-interface"})) {
          const OwnVlan own{number_below(attachment.node, {"dot1q"}), attachment.text() + "/dot1q"};
          collect_attachment(claim_of(Application::vpws, group.key(), vpn.key(), attachment), attachment, own);
        }
      }
    }
  }

  void collect_attachment(const Claim &claim, const Place &attachment, const OwnVlan &own) {
    const std::string port = attachment.key();
    if (element::find_below(attachment.node, {"encapsulation", "untagged"}) != nullptr) {
      add(port, claim, kUntagged, claim.path + "/encapsulation/untagged", "untagged");
      return;
    }
    const std::vector<Place> ranges = entries_at(attachment, {"encapsulation", "dot1q-range"});
    for (const Place &range : ranges) {
      const auto first = element::number(range.node->keys.front());
      const auto last = element::number(range.node->keys.back());
      add(port, claim, {first.value_or(0), last.value_or(0)}, range.text(), range.text());
    }
    if (own.id) {
      add(port, claim, {*own.id, *own.id}, own.leaf, kOwnVlan);
    } else if (ranges.empty()) {
      add(port, claim, kWholePort, claim.path, kOwnVlan);
    }
  }

  void collect_static_members() {
    for (const Place &vlan : entries_at(root_, {"config", "vlan"})) {
      const std::uint32_t id = element::number(vlan.node->keys.front()).value_or(0);
      for (const Place &member : entries_at(vlan, {"interface"})) {
        const Claim claim = claim_of(Application::vlan_manager, "", vlan.key(), member);
        add(member.key(), claim, {id, id}, claim.path, kOwnVlan);
      }
    }
  }

  void collect_uplinks() {
    const element::Node *layer3 = element::find_below(root_.node, {"config", "l3-interface"});
    for (const Place &uplink : entries_at(root_, {"mpls", "ldp", "interface"})) {
      const element::Node *interface = layer3 ? layer3->find_entry(uplink.node->keys) : nullptr;
      if (const auto vlan = number_below(interface, {"vlan"})) collect_uplink(uplink, *vlan);
    }
  }

  /// An uplink has a claim on each port, so that one that loses a port and one that moves to another VLAN differ.
  void collect_uplink(const Place &uplink, std::uint32_t vlan) {
    const Claim claim = claim_of(Application::uplink, "", uplink.key(), uplink);
    for (const Place &entry : entries_at(root_, {"config", "vlan"})) {
      if (element::number(entry.node->keys.front()) != vlan) continue;
      for (const Place &member : entries_at(entry, {"interface"})) {
        add(member.key(), claim, {vlan, vlan}, claim.path, member.key());
      }
    }
  }

  void collect_snooping() {
    for (const Place &instance : entries_at(root_, {"config", "igmp-snooping"})) {
      for (const Place &interface : entries_at(instance, {"interface"})) {
        const Claim claim = claim_of(Application::snooping, "", instance.key(), interface);
        add(interface.key(), claim, kWholePort, claim.path, kOwnVlan);
      }
    }
  }

  Place root_;
  std::map<ClaimIdentity, CollectedClaim> claims_;
};

}  // namespace

std::map<ClaimIdentity, CollectedClaim> collect_claims(const element::Tree &configuration) {
  return Collector(configuration).collect();
}

}  // namespace vlan_map
