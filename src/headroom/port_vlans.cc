#include "headroom/port_vlans.h"

#include <bitset>

#include "element/datastore/lookup.h"

namespace headroom {
namespace {

using element::Node;

constexpr std::uint32_t last_vlan = 4094;
using Vlans = std::bitset<last_vlan + 2>;

struct Claims {
  Vlans vlans;
  Vlans starts;  ///< of ranges; a range that begins where another one of the same VPN does is not counted
};

void claim(Claims &claims, std::uint32_t first, std::uint32_t last) {
  claims.starts.set(first);
  for (std::uint32_t vlan = first; vlan <= last; ++vlan) claims.vlans.set(vlan);
}

void claim_access_interface(Claims &claims, const Vpn &vpn, const Node &entry) {
  const auto vlan = vpn.family == Family::vpls ? element::number_below(vpn.entry, {"bridge-domain", "dot1q"})
                                               : element::number_below(&entry, {"dot1q"});
  if (vlan) claim(claims, *vlan, *vlan);
  for (const Node &range : ranges_of(entry)) {
    claim(claims, element::number(range.keys.front()).value_or(0), element::number(range.keys.back()).value_or(0));
  }
}

void claim_memberships(Claims &claims, const Site &site, const std::string &interface) {
  const Node *vlans = site.candidate.find("/config/vlan");
  if (vlans == nullptr) return;
  for (const Node &vlan : vlans->children) {
    const Node *members = element::find_below(&vlan, {"interface"});
    if (members == nullptr || members->find_entry({interface}) == nullptr) continue;
    const std::uint32_t id = element::number(vlan.keys.front()).value_or(0);
    claim(claims, id, id);
  }
}

bool is_same(const Vpn &a, const Vpn &b) { return a.family == b.family && a.group == b.group && a.name == b.name; }

/// Appends the ranges that hold no VLAN of `taken`, and takes them.
void append_starts(std::vector<std::uint16_t> &starts, Vlans &taken, const Vlans &not_a_start) {
  for (std::uint32_t vlan = 1; vlan < last_vlan; ++vlan) {
    if (taken[vlan] || taken[vlan + 1] || not_a_start[vlan]) continue;
    starts.push_back(static_cast<std::uint16_t>(vlan));
    taken.set(vlan);
    taken.set(vlan + 1);
  }
}

}  // namespace

std::vector<std::uint16_t> free_range_starts(const Site &site, const std::string &interface, const Vpn &vpn) {
  Claims own;
  Claims others;
  for (const std::vector<Vpn> *family : {&site.vpls, &site.vpws}) {
    for (const Vpn &user : *family) {
      const Node *entry = find_access_interface(user, interface);
      if (entry != nullptr) claim_access_interface(is_same(user, vpn) ? own : others, user, *entry);
    }
  }
  claim_memberships(others, site, interface);

  std::vector<std::uint16_t> starts;
  Vlans taken = own.vlans | others.vlans;
  append_starts(starts, taken, {});
  taken &= ~own.vlans | others.vlans;
  append_starts(starts, taken, own.starts);
  return starts;
}

}  // namespace headroom
