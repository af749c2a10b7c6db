#include "headroom/free_ranges.h"

#include <bitset>

namespace headroom {
namespace {

using l2vpn::Claimant;
using l2vpn::kLastVlan;
using l2vpn::PortClaim;
using Vlans = std::bitset<kLastVlan + 2>;

/// A whole port and frames without a tag take no VLAN from a range; an uplink takes that of its static member.
bool takes_vlans(const PortClaim &claim) {
  const bool is_counted =
      claim.claimant == Claimant::vpls || claim.claimant == Claimant::vpws || claim.claimant == Claimant::static_member;
  return is_counted && (claim.kind == l2vpn::ClaimKind::own_vlan || claim.kind == l2vpn::ClaimKind::range);
}

bool is_of(const PortClaim &claim, const l2vpn::VpnKey &vpn) {
  const Claimant claimant = vpn.family == l2vpn::Family::vpls ? Claimant::vpls : Claimant::vpws;
  return claim.claimant == claimant && claim.group == vpn.group && claim.name == vpn.name;
}

void take(Vlans &vlans, const l2vpn::VlanRange &range) {
  for (std::uint32_t vlan = range.first; vlan <= range.last; ++vlan) vlans.set(vlan);
}

/// Appends the ranges that hold no VLAN of `taken` and do not begin in `not_a_start`, and adds them to `taken`.
void append_starts(std::vector<std::uint32_t> &starts, Vlans &taken, const Vlans &not_a_start) {
  for (std::uint32_t vlan = 1; vlan < kLastVlan; ++vlan) {
    if (taken[vlan] || taken[vlan + 1] || not_a_start[vlan]) continue;
    starts.push_back(vlan);
    taken.set(vlan);
    taken.set(vlan + 1);
  }
}

}  // namespace

std::vector<std::uint32_t> free_range_starts(const std::vector<PortClaim> &claims, const l2vpn::VpnKey &vpn) {
  Vlans own;
  Vlans own_starts;
  Vlans others;
  for (const PortClaim &claim : claims) {
    if (!takes_vlans(claim)) continue;
    const bool is_own = is_of(claim, vpn);
    take(is_own ? own : others, claim.vlans);
    if (is_own) own_starts.set(claim.vlans.first);
  }

  std::vector<std::uint32_t> starts;
  Vlans taken = own | others;
  append_starts(starts, taken, {});
  taken &= ~own | others;
  append_starts(starts, taken, own_starts);
  return starts;
}

}  // namespace headroom
