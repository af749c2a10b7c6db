#include <algorithm>
#include <set>

#include "element/datastore/lookup.h"
#include "headroom/fill.h"
#include "headroom/port_vlans.h"

namespace headroom {
namespace {

std::set<std::string> interfaces_in_use(const Site &site) {
  std::set<std::string> names;
  for (const std::vector<Vpn> *family : {&site.vpws, &site.vpls}) {
    for (const Vpn &vpn : *family) {
      for (const element::Node &entry : access_interfaces(vpn)) names.insert(to_text(entry.keys.front()));
    }
  }
  return names;
}

bool has_ranges(const Vpn &vpn, const std::string &interface) {
  const element::Node *entry = find_access_interface(vpn, interface);
  return entry != nullptr && !ranges_of(*entry).empty();
}

/// VPNs that can have more ranges on the interface: of each family one that has some, a VPWS VPN that does not use it,
/// a new one.
std::vector<Vpn> holders(const Site &site, const std::string &interface) {
  std::vector<Vpn> vpns;
  const auto add_first = [&vpns](const std::vector<Vpn> &family, const auto &is_meant) {
    const auto vpn = std::find_if(family.begin(), family.end(), is_meant);
    if (vpn != family.end()) vpns.push_back(*vpn);
  };
  const auto has_some = [&interface](const Vpn &vpn) { return has_ranges(vpn, interface); };
  add_first(site.vpws, has_some);
  add_first(site.vpls, has_some);
  add_first(site.vpws, [&interface](const Vpn &vpn) { return find_access_interface(vpn, interface) == nullptr; });
  vpns.push_back(site.spare_vpn(Family::vpws));
  return vpns;
}

/// Changes an access interface of the VPN, and no range.
Load touched(const Site &site, const Vpn &vpn, const element::CardLimits &card) {
  Load load = site.load();
  if (vpn.family == Family::vpls) {
    const bool is_one = element::number_below(vpn.entry, {"bridge-domain", "bridge-mtu"}) == 1U;
    element::Node &bridge_domain = element::child_named(put_vpn(load.candidate, vpn), "bridge-domain");
    element::set_named(bridge_domain, "bridge-mtu", std::uint32_t{is_one ? 2U : 1U});
  } else {
    const std::vector<std::string> port = site.spare.ports(PortKind::ethernet, 1);
    load.profile = with_ports(site.profile, port);
    put_access_interface(load.candidate, vpn, port.front());
  }
  load.profile.card = card;
  return load;
}

Way way_of(const Site &site, const Vpn &vpn, const std::string &interface, const element::CardLimits &card) {
  const std::vector<std::uint16_t> starts = free_range_starts(site, interface, vpn);
  const auto load = [&site, vpn, interface, starts, card](std::uint64_t more) {
    Load filled = site.load();
    filled.profile.card = card;
    if (more == 0) return filled;
    element::Node &entry = put_access_interface(filled.candidate, vpn, interface);
    for (std::uint64_t i = 0; i < more; ++i) add_range(entry, starts[i], static_cast<std::uint16_t>(starts[i] + 1));
    return filled;
  };
  const auto touch = [&site, vpn, card] { return touched(site, vpn, card); };
  return {load, std::min<std::uint64_t>(starts.size(), search_ceiling), touch};
}

}  // namespace

std::vector<Fill> fills_of_interface_ranges(const Site &site) {
  std::vector<Fill> fills;
  for (const std::string &interface : interfaces_in_use(site)) {
    Fill &fill = fills.emplace_back(Limit::interface_ranges, "encapsulation-interface-range-limit");
    fill.interface = interface;
    fill.named = " access-interface " + interface + " on ";
    for (const Vpn &vpn : holders(site, interface)) {
      fill.ways.push_back(way_of(site, vpn, interface, site.profile.card));
      fill.unhindered.push_back(way_of(site, vpn, interface, card_of_endless_vlans(site.profile.card)));
    }
  }
  return fills;
}

}  // namespace headroom
