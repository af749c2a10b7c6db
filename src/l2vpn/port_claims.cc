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

std::optional<std::uint32_t> own_vlan(const Vpn &vpn, const Attachment &attachment) {
  const std::optional<std::uint32_t> vlan = vpn.key.family == Family::vpls ? vpn.dot1q : attachment.dot1q;
  return vlan == 0U ? std::nullopt : vlan;
}

class AttachmentClaims {
 public:
  AttachmentClaims(const VpnKey &vpn, const std::string &interface)
      : frame_(claim_of(vpn.family == Family::vpls ? Claimant::vpls : Claimant::vpws, ClaimKind::whole_port, interface,
                        vpn.name, attachment_path(vpn, interface))) {
    frame_.group = vpn.group;
  }

  PortClaim &add(ClaimKind kind, VlanRange vlans, std::string source) {
    const auto begins_there = [&vlans](const PortClaim &claim) { return claim.vlans.first == vlans.first; };
    const bool is_absorbed = std::any_of(claims_.begin(), claims_.end(), begins_there);
    PortClaim &claim = claims_.emplace_back(frame_);
    claim.kind = kind;
    claim.vlans = vlans;
    claim.source = std::move(source);
    claim.absorbed = is_absorbed;
    return claim;
  }

  void add_whole_port() { add(ClaimKind::whole_port, kWholePort, frame_.path); }

  std::vector<PortClaim> take() { return std::move(claims_); }

 private:
  PortClaim frame_;
  std::vector<PortClaim> claims_;
};

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

std::vector<PortClaim> claims_of(const Vpn &vpn, const Attachment &attachment) {
  const std::string &interface = attachment.interface;
  const std::optional<std::uint32_t> own = own_vlan(vpn, attachment);
  AttachmentClaims claims(vpn.key, interface);
  if (attachment.untagged) claims.add(ClaimKind::untagged, kUntagged, untagged_path(vpn.key, interface));
  if (own) {
    PortClaim &claim = claims.add(ClaimKind::own_vlan, {*own, *own}, own_vlan_path(vpn.key, interface));
    claim.beside_untagged = attachment.untagged && attachment.ranges.empty();
  }
  for (const VlanRange &range : attachment.ranges) {
    claims.add(ClaimKind::range, range, range_path(vpn.key, interface, range.first, range.last));
  }
  if (!attachment.untagged && !own && attachment.ranges.empty()) claims.add_whole_port();
  return claims.take();
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
