#include <algorithm>

#include "element/datastore/lookup.h"
#include "element/datastore/path.h"
#include "headroom/fill.h"

namespace headroom {
namespace {

/// What is added: ranges of so many VLANs each, so many on a port.
struct Packing {
  std::uint16_t width = 1;
  std::uint64_t on_a_port = 1;
};

// A port takes any number of VLANs.
constexpr Packing vlan_packing{1, 4000};
// One on a port, so that no limit of a port's ranges comes in the way; or as many as ports are known to take, where
// access interfaces are few.
constexpr Packing range_packing{2, 1};
constexpr Packing dense_range_packing{2, 8};

// A bridge domain's own VLAN would count as well, and its interfaces without encapsulation would not agree.
bool can_take_ranges(const Vpn &vpls) {
  if (element::number_below(vpls.entry, {"bridge-domain", "dot1q"})) return false;
  const element::Nodes &present = access_interfaces(vpls);
  return std::all_of(present.begin(), present.end(), [](const auto &entry) { return !ranges_of(entry).empty(); });
}

// The library looks for the ranges of a VPN at a path without quotes, and finds none where a name needs them.
bool has_plain_names(const Vpn &vpn) {
  return element::quoted_key(vpn.group) == vpn.group && element::quoted_key(vpn.name) == vpn.name;
}

void add_packed(element::Node &access_interface, const Packing &packing, std::uint64_t count) {
  for (std::uint64_t i = 0; i < count; ++i) {
    const auto first = static_cast<std::uint16_t>(1 + i * packing.width);
    add_range(access_interface, first, static_cast<std::uint16_t>(first + packing.width - 1));
  }
}

Way way_of(const Site &site, const Vpn &vpn, const Packing &packing, const element::CardLimits &card) {
  return {[&site, vpn, packing, card](std::uint64_t more) {
    const std::uint64_t count = (more + packing.on_a_port - 1) / packing.on_a_port;
    const std::vector<std::string> ports = site.spare.ports(PortKind::ethernet, count);
    Load load{site.candidate, with_ports(site.profile, ports)};
    load.profile.card = card;
    std::uint64_t rest = more;
    for (const std::string &port : ports) {
      const std::uint64_t here = std::min(rest, packing.on_a_port);
      add_packed(put_access_interface(load.candidate, vpn, port), packing, here);
      rest -= here;
    }
    return load;
  }};
}

/// A VPWS VPN has any number of access interfaces, a VPLS VPN has not.
std::vector<Way> ways_of(const Site &site, const Packing &packing, const Packing &vpls_packing,
                         const element::CardLimits &card) {
  std::vector<Way> ways;
  const auto vpws = std::find_if(site.vpws.begin(), site.vpws.end(), has_plain_names);
  if (vpws != site.vpws.end()) ways.push_back(way_of(site, *vpws, packing, card));
  ways.push_back(way_of(site, site.spare_vpn(Family::vpws), packing, card));
  const auto vpls = std::find_if(site.vpls.begin(), site.vpls.end(), can_take_ranges);
  if (vpls != site.vpls.end()) ways.push_back(way_of(site, *vpls, vpls_packing, card));
  return ways;
}

}  // namespace

Fill fill_of_encapsulation_vlans(const Site &site) {
  Fill fill(Limit::encapsulation_vlans, "encapsulation-vlan-limit");
  fill.ways = ways_of(site, vlan_packing, vlan_packing, site.profile.card);
  element::CardLimits card = card_of_endless_vlans(site.profile.card);
  card.selective_encapsulation_vlan_entries = site.profile.card.selective_encapsulation_vlan_entries;
  fill.unhindered = ways_of(site, vlan_packing, vlan_packing, card);
  return fill;
}

// Every range counts as a VLAN, too, and VLANs are looked at first.
Fill fill_of_encapsulation_ranges(const Site &site) {
  Fill fill(Limit::encapsulation_ranges, "encapsulation-range-limit");
  fill.ways = ways_of(site, range_packing, dense_range_packing, site.profile.card);
  element::CardLimits card = card_of_endless_vlans(site.profile.card);
  card.selective_encapsulation_vlan_ranges = site.profile.card.selective_encapsulation_vlan_ranges;
  fill.unhindered = ways_of(site, range_packing, dense_range_packing, card);
  return fill;
}

}  // namespace headroom
