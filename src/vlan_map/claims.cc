#include "vlan_map/claims.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "vlan_map/collected_claims.h"

namespace vlan_map {
namespace {

using Collected = std::map<ClaimIdentity, CollectedClaim>;

/// The ports as they come, those of the profile first.
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
  return std::tie(a.vlans.first, a.vlans.last, a.application, a.group, a.vpn, a.source) <
         std::tie(b.vlans.first, b.vlans.last, b.application, b.group, b.vpn, b.source);
}

/// What the commit does to a claim of the candidate configuration; takes its counterpart out of the running one.
void compare_with(Collected &running, const ClaimIdentity &identity, Claim &claim) {
  const auto before = running.find(identity);
  if (before == running.end()) {
    claim.standing = Standing::added;
    return;
  }
  const VlanRange formerly = before->second.claim.vlans;
  running.erase(before);
  if (formerly == claim.vlans) return;
  claim.standing = Standing::changed;
  claim.formerly = formerly;
}

std::map<std::string, std::vector<Claim>> claims_by_port(const element::Transaction &transaction) {
  std::map<std::string, std::vector<Claim>> ports;
  Collected removed = collect_claims(transaction.running);
  for (auto &[identity, after] : collect_claims(transaction.candidate)) {
    ports[after.port].push_back(after.claim);
    compare_with(removed, identity, ports[after.port].back());
  }
  for (auto &[identity, before] : removed) {
    before.claim.standing = Standing::removed;
    ports[before.port].push_back(std::move(before.claim));
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
