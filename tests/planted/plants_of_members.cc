#include <fmt/format.h>

#include <algorithm>

#include "tests/planted/plant.h"

namespace planted {
namespace {

using diagnosis::Standing;

constexpr std::string_view kUplinkWarning =
    "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces will not be able "
    "to encapsulate MPLS traffic";

std::string member_of(std::uint16_t vlan, const std::string &port) {
  return fmt::format("/config/vlan{{{}}}/interface{{{}}}", vlan, port);
}

/// An LDP uplink on a VLAN; as parties its layer-3 interface and its interface of LDP.
struct Uplink {
  std::uint16_t vlan = 0;
  std::string layer3;
  std::string ldp;
};

Uplink draw_uplink(Draft &draft, Supply &supply, Arrival arrival) {
  const std::string name = "uplink-" + supply.name();
  const Uplink uplink{supply.vlans(), "/config/l3-interface{" + name + "}", "/mpls/ldp/interface{" + name + "}"};
  draft.both(fmt::format("{}/vlan = {}", uplink.layer3, uplink.vlan));
  put(draft, uplink.ldp, arrival);
  return uplink;
}

// Members are gone through by VLAN: the lowest of the port is named.
Planted whole_port_of_member(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply);
  const std::string port = supply.port();
  const std::uint16_t vlan = supply.vlans();
  const auto higher = static_cast<std::uint16_t>(vlan + 1 + supply.number(kVlansOfABlock - 1));
  const Arrival arrival = supply.coin() ? Arrival::added : Arrival::changed;
  const Arrival arrival_of_member = supply.coin() ? Arrival::added : Arrival::stands;
  attach(draft, supply, vpn, port, {}, arrival);
  put(draft, member_of(vlan, port), arrival_of_member);
  if (supply.coin()) draft.both(member_of(higher, port));
  return {"access-port-based-static-member",
          fmt::format("{} interface {} is already assigned to dot1q vlan {} and can not be configured on a port-based "
                      "VPN",
                      vpn.text(), port, vlan),
          {{vpn.attachment(port), standing_of(arrival)}, {member_of(vlan, port), standing_of(arrival_of_member)}}};
}

Planted member_on_whole_port(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply);
  const std::string port = supply.port();
  const std::uint16_t vlan = supply.vlans();
  attach(draft, supply, vpn, port, {}, Arrival::stands);
  put(draft, member_of(vlan, port), Arrival::added);
  if (supply.coin()) draft.both(fmt::format("/config/vlan{{{}}}", vlan));
  return {"member-on-port-based-vpn",
          fmt::format("vlan {} interface {} is already assigned to mpls l2vpn {}", vlan, port, vpn.text()),
          {{vpn.attachment(port), Standing::unchanged}, {member_of(vlan, port), Standing::added}}};
}

Planted member_in_vlan_of_vpn(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply);
  const std::string port = supply.port();
  const std::uint16_t first = supply.vlans();
  const auto vlan = static_cast<std::uint16_t>(first + supply.number(kVlansOfABlock));
  attach(draft, supply, vpn, port, supply.coin() ? vlan_claim(vlan) : range_claim(first, 0), Arrival::stands);
  put(draft, member_of(vlan, port), Arrival::added);
  return {"member-same-dot1q",
          fmt::format("vlan {} interface {} is already assigned to mpls l2vpn {} with the same dot1q. It must be "
                      "configured to another dot1q vlan",
                      vlan, port, vpn.text()),
          {{vpn.attachment(port), Standing::unchanged}, {member_of(vlan, port), Standing::added}}};
}

Claim draw_part_of_port(Supply &supply) {
  const std::vector<Claim> claims{vlan_claim(supply.vlans()), range_claim(supply.vlans(), 0), {Claim::untagged, 0, 0}};
  return supply.one_of(claims);
}

Planted member_in_uplink_vlan(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply);
  const std::string port = supply.port();
  const Arrival arrival_of_uplink = supply.coin() ? Arrival::added : Arrival::stands;
  const Uplink uplink = draw_uplink(draft, supply, arrival_of_uplink);
  attach(draft, supply, vpn, port, draw_part_of_port(supply), Arrival::stands);
  put(draft, member_of(uplink.vlan, port), Arrival::added);
  return {"member-on-uplink",
          std::string(kUplinkWarning),
          {{vpn.attachment(port), Standing::unchanged},
           {member_of(uplink.vlan, port), Standing::added},
           {uplink.layer3, Standing::unchanged},
           {uplink.ldp, standing_of(arrival_of_uplink)}}};
}

Planted access_on_uplink(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply);
  const std::string port = supply.port();
  const Arrival arrival_of_uplink = supply.coin() ? Arrival::added : Arrival::stands;
  const Uplink uplink = draw_uplink(draft, supply, arrival_of_uplink);
  attach(draft, supply, vpn, port, draw_part_of_port(supply), Arrival::added);
  put(draft, member_of(uplink.vlan, port), Arrival::stands);
  return {"access-on-uplink",
          std::string(kUplinkWarning),
          {{vpn.attachment(port), Standing::added},
           {member_of(uplink.vlan, port), Standing::unchanged},
           {uplink.layer3, Standing::unchanged},
           {uplink.ldp, standing_of(arrival_of_uplink)}}};
}

/// A VPWS that takes a port whole beside a VPLS that has a VLAN of it.
Planted vpls_beside_whole_port(Draft &draft, Supply &supply) {
  Rivals rivals = draw_rivals(supply);
  rivals.one.family = Family::vpws;
  rivals.other.family = Family::vpls;
  if (supply.coin()) std::swap(rivals.arrival_of_one, rivals.arrival_of_other);
  attach(draft, supply, rivals.one, rivals.port, {}, rivals.arrival_of_one);
  attach(draft, supply, rivals.other, rivals.port, vlan_claim(supply.vlans()), rivals.arrival_of_other);
  return {"tls-beside-vpws",
          fmt::format("All VPLS assigned to interface {} will run as TLS since {} has port based TLS behavior",
                      rivals.port, rivals.other.text()),
          rivals.parties()};
}

/// The service is switched on in a VPN that takes its ports whole: every interface is named.
Planted service_switched_on(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpls);
  std::vector<std::string> ports;
  for (std::size_t i = 1 + supply.number(kAccessInterfaceLimit); i > 0; --i) ports.push_back(supply.port());
  std::sort(ports.begin(), ports.end());
  const Arrival arrival = supply.coin() ? Arrival::added : Arrival::stands;
  std::string named;
  std::vector<ExpectedParty> parties;
  for (const std::string &port : ports) {
    put(draft, vpn.attachment(port), arrival);
    named += port + " ";
    parties.push_back({vpn.attachment(port), arrival == Arrival::added ? Standing::added : Standing::changed});
  }
  draft.candidate.push_back(vpn.bridge_domain() + "/transparent-lan-service");
  return {"tls-port-based-vpls",
          fmt::format("All VPLS assigned to interface {}will run as TLS since vpls-group {} vpn-name {} has port based "
                      "TLS behavior",
                      named, vpn.group, vpn.name),
          parties};
}

/// Interfaces are added to a VPN that has the service: they alone are named.
Planted interfaces_added_to_service(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpls);
  draft.both(vpn.bridge_domain() + "/transparent-lan-service");
  const std::string added = supply.port();
  for (std::size_t i = supply.number(3); i > 0; --i) draft.both(vpn.attachment(supply.port()));
  put(draft, vpn.attachment(added), Arrival::added);
  return {
      "tls-port-based-vpls",
      fmt::format("All VPLS assigned to interface {} will run as TLS since vpls-group {} vpn-name {} has port based "
                  "TLS behavior",
                  added, vpn.group, vpn.name),
      {{vpn.attachment(added), Standing::added}}};
}

Planted port_based_service(Draft &draft, Supply &supply) {
  return supply.coin() ? service_switched_on(draft, supply) : interfaces_added_to_service(draft, supply);
}

}  // namespace

std::vector<PlantKind> port_plants() { return {{"access-port-based-static-member", whole_port_of_member}}; }

std::vector<PlantKind> member_plants() {
  return {{"member-on-port-based-vpn", member_on_whole_port},
          {"member-same-dot1q", member_in_vlan_of_vpn},
          {"member-on-uplink", member_in_uplink_vlan}};
}

std::vector<PlantKind> warning_plants() {
  return {{"access-on-uplink", access_on_uplink},
          {"tls-beside-vpws", vpls_beside_whole_port},
          {"tls-port-based-vpls", port_based_service}};
}

}  // namespace planted
