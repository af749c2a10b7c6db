#include "element/datastore/lookup.h"
#include "headroom/fill.h"

namespace headroom {
namespace {

/// What an added access interface takes of its port.
enum class Claim { vpn_vlan, untagged, own_vlan };

// All interfaces of a VPN are of one kind: that of the first.
PortKind kind_of_ports(const Vpn &vpn) {
  const element::Nodes &present = access_interfaces(vpn);
  const bool on_service_ports = !present.empty() && to_text(present.front().keys.front()).starts_with("service");
  return on_service_ports ? PortKind::service_port : PortKind::ethernet;
}

void add_claim(element::Node &access_interface, Claim claim, std::uint16_t vlan) {
  if (claim == Claim::untagged) {
    element::set_named(element::child_named(access_interface, "encapsulation"), "untagged", element::Empty{});
  }
  if (claim == Claim::own_vlan) add_range(access_interface, vlan, vlan);
}

Way way_of(const Site &site, const Vpn &vpn, Claim claim) {
  return {[&site, vpn, claim](std::uint64_t more) {
    const std::vector<std::string> ports = site.spare.ports(kind_of_ports(vpn), more);
    const auto vpn_vlan = element::number_below(vpn.entry, {"bridge-domain", "dot1q"});
    Load load{site.candidate, with_ports(site.profile, ports)};
    for (const std::string &port : ports) {
      // A range must not begin at the VLAN of its own bridge domain.
      add_claim(put_access_interface(load.candidate, vpn, port), claim, vpn_vlan == 1 ? 2 : 1);
    }
    return load;
  }};
}

// The first VPN with too many is the only one of which the library tells.
Way way_of_it_alone(const Site &site, const Vpn &vpn, Claim claim) {
  return {[&site, vpn, load = way_of(site, vpn, claim).load](std::uint64_t more) {
    Load filled = load(more);
    filled.profile.card = card_of_endless_vlans(site.profile.card);
    for (const Vpn &other : site.vpls) {
      if (other.entry != vpn.entry) drop_access_interfaces(filled.candidate, other);
    }
    return filled;
  }};
}

}  // namespace

// Whether the VPN's interfaces agree on having an encapsulation is the library's to judge: of the claims, the one is
// taken that leads to the limit.
std::vector<Fill> fills_of_access_interfaces(const Site &site) {
  std::vector<Fill> fills;
  for (const Vpn &vpn : site.vpls) {
    Fill &fill = fills.emplace_back(Limit::access_interfaces, "access-interface-limit");
    fill.vpn = shown(vpn);
    fill.used = static_cast<std::int64_t>(access_interfaces(vpn).size());
    for (const Claim claim : {Claim::vpn_vlan, Claim::untagged, Claim::own_vlan}) {
      fill.ways.push_back(way_of(site, vpn, claim));
      fill.unhindered.push_back(way_of_it_alone(site, vpn, claim));
    }
  }
  return fills;
}

}  // namespace headroom
