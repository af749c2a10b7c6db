#include <algorithm>
#include <limits>

#include "element/datastore/lookup.h"
#include "headroom/fill.h"

namespace headroom {
namespace {

bool has_service_port(const Vpn &vpn) {
  const element::Nodes &present = access_interfaces(vpn);
  return std::any_of(present.begin(), present.end(),
                     [](const auto &entry) { return to_text(entry.keys.front()).starts_with("service-port"); });
}

Way way_of(const Site &site, const Vpn &vpn, std::uint32_t mtu) {
  const auto load = [&site, vpn, mtu](std::uint64_t more) {
    Load filled = site.load();
    element::Node &bridge_domain = element::child_named(put_vpn(filled.candidate, vpn), "bridge-domain");
    element::set_named(bridge_domain, "bridge-mtu", static_cast<std::uint32_t>(mtu + more));
    return filled;
  };
  constexpr std::uint64_t largest = std::numeric_limits<std::uint32_t>::max();
  return {load, std::min(search_ceiling, largest - mtu)};
}

}  // namespace

std::vector<Fill> fills_of_bridge_mtu(const Site &site) {
  std::vector<Fill> fills;
  for (const Vpn &vpn : site.vpls) {
    if (!has_service_port(vpn)) continue;
    const std::uint32_t mtu = element::number_below(vpn.entry, {"bridge-domain", "bridge-mtu"}).value_or(0);
    Fill &fill = fills.emplace_back(Limit::bridge_mtu, "service-port-bridge-mtu");
    fill.vpn = shown(vpn);
    fill.named = shown(vpn) + " access-interface ";
    fill.used = mtu;
    fill.ways.push_back(way_of(site, vpn, mtu));
  }
  return fills;
}

}  // namespace headroom
