#include "l2vpn/port_claims.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <utility>

namespace l2vpn {
namespace {

/// What all claims of a list entry share. `source` is the entry's path.
PortClaim claim_of(Claimant claimant, ClaimKind kind, const std::string &port, std::string name, std::string path) {
  PortClaim claim;
  claim.claimant = claimant;
  claim.kind = kind;
  claim.port = port;
  claim.name = std::move(name);
  claim.source = path;
  claim.path = std::move(path);
  return claim;
}

VlanClaim &add(std::vector<VlanClaim> &claims, ClaimKind kind, VlanRange vlans) {
  const bool is_absorbed = std::any_of(claims.begin(), claims.end(),
                                       [&vlans](const VlanClaim &claim) { return claim.vlans.first == vlans.first; });
  return claims.emplace_back(VlanClaim{kind, vlans, false, is_absorbed});
}

/// The path of the leaf, range or attachment that makes the claim.
std::string source_of(const VlanClaim &claim, const VpnKey &vpn, const std::string &interface) {
  switch (claim.kind) {
    case ClaimKind::untagged:
      return untagged_path(vpn, interface);
    case ClaimKind::own_vlan:
      return own_vlan_path(vpn, interface);
    case ClaimKind::range:
      return range_path(vpn, interface, claim.vlans.first, claim.vlans.last);
    case ClaimKind::whole_port:
      break;
  }
  return attachment_path(vpn, interface);
}

void add_static_members(const Configuration &configuration, std::vector<PortClaim> &claims) {
  for (const StaticMember &member : configuration.static_members) {
    PortClaim &claim =
        claims.emplace_back(claim_of(Claimant::static_member, ClaimKind::own_vlan, member.interface,
                                     fmt::to_string(member.vlan), static_member_path(member.vlan, member.interface)));
    claim.vlans = {member.vlan, member.vlan};
  }
}

void add_uplinks(const Configuration &configuration, std::vector<PortClaim> &claims) {
  std::map<std::uint32_t, std::vector<std::string>> ports;
  for (const StaticMember &member : configuration.static_members) ports[member.vlan].push_back(member.interface);
  for (const Uplink &uplink : configuration.uplinks) {
    if (!uplink.vlan) continue;
    for (const std::string &port : ports[*uplink.vlan]) {
      PortClaim &claim = claims.emplace_back(
          claim_of(Claimant::uplink, ClaimKind::own_vlan, port, uplink.interface, uplink_path(uplink.interface)));
      claim.vlans = {*uplink.vlan, *uplink.vlan};
    }
  }
}

void add_snooping(const Configuration &configuration, std::vector<PortClaim> &claims) {
  for (const SnoopingInterface &snooping : configuration.snooping) {
    PortClaim &claim = claims.emplace_back(claim_of(Claimant::snooping, ClaimKind::whole_port, snooping.interface,
                                                    fmt::to_string(snooping.instance),
                                                    snooping_path(snooping.instance, snooping.interface)));
    claim.vlans = kWholePort;
  }
}

}  // namespace

std::vector<VlanClaim> vlan_claims(const Attachment &attachment, std::optional<std::uint32_t> own_vlan) {
  const std::uint32_t own = own_vlan.value_or(0);
  std::vector<VlanClaim> claims;
  if (attachment.untagged) add(claims, ClaimKind::untagged, kUntagged);
  if (own != 0) {
    add(claims, ClaimKind::own_vlan, {own, own}).beside_untagged = attachment.untagged && attachment.ranges.empty();
  }
  for (const VlanRange &range : attachment.ranges) add(claims, ClaimKind::range, range);
  if (claims.empty()) add(claims, ClaimKind::whole_port, kWholePort);
  return claims;
}

std::vector<PortClaim> claims_of(const Vpn &vpn, const Attachment &attachment) {
  const bool is_vpls = vpn.key.family == Family::vpls;
  std::vector<PortClaim> claims;
  for (const VlanClaim &taken : vlan_claims(attachment, is_vpls ? vpn.dot1q : attachment.dot1q)) {
    PortClaim &claim =
        claims.emplace_back(claim_of(is_vpls ? Claimant::vpls : Claimant::vpws, taken.kind, attachment.interface,
                                     vpn.key.name, attachment_path(vpn.key, attachment.interface)));
    claim.group = vpn.key.group;
    claim.vlans = taken.vlans;
    claim.source = source_of(taken, vpn.key, attachment.interface);
    claim.beside_untagged = taken.beside_untagged;
    claim.absorbed = taken.absorbed;
  }
  return claims;
}

std::vector<PortClaim> port_claims(const Configuration &configuration) {
  std::vector<PortClaim> claims;
  for (const Vpn &vpn : configuration.vpns) {
    for (const Attachment &attachment : vpn.attachments) {
      for (PortClaim &claim : claims_of(vpn, attachment)) claims.push_back(std::move(claim));
    }
  }
  add_static_members(configuration, claims);
  add_uplinks(configuration, claims);
  add_snooping(configuration, claims);
  return claims;
}

std::optional<VlanRange> overlap(const VlanRange &a, const VlanRange &b) {
  const VlanRange shared{std::max(a.first, b.first), std::min(a.last, b.last)};
  if (shared.first > shared.last) return std::nullopt;
  return shared;
}

std::optional<VlanRange> overlap(const PortClaim &a, const PortClaim &b) {
  return a.port == b.port ? overlap(a.vlans, b.vlans) : std::nullopt;
}

}  // namespace l2vpn
