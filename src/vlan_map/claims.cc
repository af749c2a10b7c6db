#include "vlan_map/claims.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace vlan_map {
namespace {

using l2vpn::ClaimKind;
using l2vpn::PortClaim;

/// Identifies a claim across a commit that moves it to other VLANs: the path of the list entry that makes it, and which
/// of the entry's claims it is.
using ClaimIdentity = std::pair<std::string, std::string>;
using ClaimsByIdentity = std::map<ClaimIdentity, PortClaim>;

// A range or untagged frames are another claim than the range or VLAN before. An uplink that loses a port differs from
// one that moves to another VLAN.
ClaimIdentity identity_of(const PortClaim &claim) {
  if (claim.claimant == Claimant::uplink) return {claim.path, claim.port};
  const bool is_own = claim.kind == ClaimKind::whole_port || claim.kind == ClaimKind::own_vlan;
  return {claim.path, is_own ? "own" : claim.source};
}

ClaimsByIdentity claims_of(const element::Tree &tree) {
  ClaimsByIdentity claims;
  for (PortClaim &claim : l2vpn::port_claims(l2vpn::read_configuration(tree))) {
    if (claim.beside_untagged) continue;
    ClaimIdentity identity = identity_of(claim);
    claims.insert_or_assign(std::move(identity), std::move(claim));
  }
  return claims;
}

Claim drawn(const PortClaim &claim) {
  Claim made;
  made.claimant = claim.claimant;
  made.group = claim.group;
  made.vpn = claim.name;
  made.vlans = claim.vlans;
  made.path = claim.path;
  made.source = claim.source;
  return made;
}

/// Ports in the order in which they are first named, those of the profile before all others.
class PortList {
 public:
  explicit PortList(const element::Profile &profile) {
    for (const element::Interface &interface : profile.interfaces()) port(interface.name).in_profile = true;
  }

  void add(const std::string &name, std::vector<Claim> claims) { port(name).claims = std::move(claims); }

  std::vector<Port> take() { return std::move(ports_); }

 private:
  Port &port(const std::string &name) {
    const auto [entry, is_new] = indexes_.try_emplace(name, ports_.size());
    if (is_new) ports_.push_back({name, false, {}, {}});
    return ports_[entry->second];
  }

  std::vector<Port> ports_;
  std::unordered_map<std::string, std::size_t> indexes_;
};

bool is_before(const Claim &a, const Claim &b) {
  return std::tie(a.vlans.first, a.vlans.last, a.claimant, a.group, a.vpn, a.source) <
         std::tie(b.vlans.first, b.vlans.last, b.claimant, b.group, b.vpn, b.source);
}

/// Sets what the commit does to a claim of the candidate, and removes its counterpart from the running ones.
void compare_with(ClaimsByIdentity &running, const ClaimIdentity &identity, Claim &claim) {
  const auto before = running.find(identity);
  if (before == running.end()) {
    claim.status = ChangeStatus::added;
    return;
  }
  const VlanRange previous_vlans = before->second.vlans;
  running.erase(before);
  if (previous_vlans == claim.vlans) return;
  claim.status = ChangeStatus::changed;
  claim.previous_vlans = previous_vlans;
}

std::map<std::string, std::vector<Claim>> claims_by_port(const element::Transaction &transaction) {
  std::map<std::string, std::vector<Claim>> ports;
  ClaimsByIdentity removed = claims_of(transaction.running);
  for (const auto &[identity, after] : claims_of(transaction.candidate)) {
    ports[after.port].push_back(drawn(after));
    compare_with(removed, identity, ports[after.port].back());
  }
  for (const auto &[identity, before] : removed) {
    ports[before.port].push_back(drawn(before));
    ports[before.port].back().status = ChangeStatus::removed;
  }
  return ports;
}

}  // namespace

std::vector<Port> find_claims(const element::Transaction &transaction, const element::Profile &profile) {
  PortList list(profile);
  for (auto &[port, claims] : claims_by_port(transaction)) {
    std::sort(claims.begin(), claims.end(), is_before);
    list.add(port, std::move(claims));
  }
  return list.take();
}

}  // namespace vlan_map
