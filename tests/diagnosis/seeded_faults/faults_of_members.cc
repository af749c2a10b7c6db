#include <fmt/format.h>

#include <algorithm>

#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {
namespace {

using diagnosis::ChangeStatus;

constexpr std::string_view kUplinkWarning =
    "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces will not be able "
    "to encapsulate MPLS traffic";

/// An LDP uplink on a VLAN; as parties its layer-3 interface and its interface of LDP.
struct Uplink {
  std::uint16_t vlan = 0;
  std::string layer3;
  std::string ldp;
};

Uplink draw_uplink(Draft &draft, NamePool &names, Arrival arrival) {
  const std::string name = "uplink-" + names.name();
  const Uplink uplink{names.vlans(), "/config/l3-interface{" + name + "}", "/mpls/ldp/interface{" + name + "}"};
  draft.both(fmt::format("{}/vlan = {}", uplink.layer3, uplink.vlan));
  put(draft, uplink.ldp, arrival);
  return uplink;
}

// Members are gone through by VLAN: the lowest of the port is named. One at a higher VLAN is a party as well.
SeededFault whole_port_of_member(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names);
  const std::string port = names.port();
  const std::uint16_t vlan = names.vlans();
  const auto higher = static_cast<std::uint16_t>(vlan + 1 + names.number(kVlansOfABlock - 1));
  const Arrival arrival = names.coin() ? Arrival::added : Arrival::changed;
  const Arrival arrival_of_member = names.coin() ? Arrival::added : Arrival::stands;
  attach(draft, names, vpn, port, {}, arrival);
  put(draft, member_of(vlan, port), arrival_of_member);
  SeededFault fault{
      "access-port-based-static-member",
      fmt::format("{} interface {} is already assigned to dot1q vlan {} and can not be configured on a port-based VPN",
                  vpn.text(), port, vlan),
      {{vpn.attachment(port), status_of(arrival)}, {member_of(vlan, port), status_of(arrival_of_member)}}};
  if (names.coin()) {
    draft.both(member_of(higher, port));
    fault.parties.push_back({member_of(higher, port), ChangeStatus::unchanged});
  }
  if (arrival_of_member == Arrival::added) fault.besides.push_back(member_on_port(vpn, arrival, port, vlan));
  return fault;
}

SeededFault member_on_whole_port(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names);
  const std::string port = names.port();
  const std::uint16_t vlan = names.vlans();
  attach(draft, names, vpn, port, {}, Arrival::stands);
  put(draft, member_of(vlan, port), Arrival::added);
  if (names.coin()) draft.both(fmt::format("/config/vlan{{{}}}", vlan));
  return member_on_port(vpn, Arrival::stands, port, vlan);
}

SeededFault member_in_vlan_of_vpn(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names);
  const std::string port = names.port();
  const std::uint16_t first = names.vlans();
  const auto vlan = static_cast<std::uint16_t>(first + names.number(kVlansOfABlock));
  attach(draft, names, vpn, port, names.coin() ? vlan_claim(vlan) : range_claim(first, 0), Arrival::stands);
  put(draft, member_of(vlan, port), Arrival::added);
  return member_in_vlan(vpn, Arrival::stands, port, vlan);
}

Claim draw_part_of_port(NamePool &names) {
  const std::vector<Claim> claims{vlan_claim(names.vlans()), range_claim(names.vlans(), 0), {Claim::untagged, 0, 0}};
  return names.one_of(claims);
}

SeededFault member_in_uplink_vlan(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names);
  const std::string port = names.port();
  const Arrival arrival_of_uplink = names.coin() ? Arrival::added : Arrival::stands;
  const Uplink uplink = draw_uplink(draft, names, arrival_of_uplink);
  attach(draft, names, vpn, port, draw_part_of_port(names), Arrival::stands);
  put(draft, member_of(uplink.vlan, port), Arrival::added);
  return {"member-on-uplink",
          std::string(kUplinkWarning),
          {{vpn.attachment(port), ChangeStatus::unchanged},
           {member_of(uplink.vlan, port), ChangeStatus::added},
           {uplink.layer3, ChangeStatus::unchanged},
           {uplink.ldp, status_of(arrival_of_uplink)}}};
}

SeededFault access_on_uplink(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names);
  const std::string port = names.port();
  const Arrival arrival_of_uplink = names.coin() ? Arrival::added : Arrival::stands;
  const Uplink uplink = draw_uplink(draft, names, arrival_of_uplink);
  attach(draft, names, vpn, port, draw_part_of_port(names), Arrival::added);
  put(draft, member_of(uplink.vlan, port), Arrival::stands);
  return {"access-on-uplink",
          std::string(kUplinkWarning),
          {{vpn.attachment(port), ChangeStatus::added},
           {member_of(uplink.vlan, port), ChangeStatus::unchanged},
           {uplink.layer3, ChangeStatus::unchanged},
           {uplink.ldp, status_of(arrival_of_uplink)}}};
}

/// A VPWS that takes a port whole beside a VPLS that has a VLAN of it.
SeededFault vpls_beside_whole_port(Draft &draft, NamePool &names) {
  ConflictingPair pair = draw_conflicting_pair(names);
  pair.one.family = Family::vpws;
  pair.other.family = Family::vpls;
  if (names.coin()) std::swap(pair.arrival_of_one, pair.arrival_of_other);
  attach(draft, names, pair.one, pair.port, {}, pair.arrival_of_one);
  attach(draft, names, pair.other, pair.port, vlan_claim(names.vlans()), pair.arrival_of_other);
  return {"tls-beside-vpws",
          fmt::format("All VPLS assigned to interface {} will run as TLS since {} has port based TLS behavior",
                      pair.port, pair.other.text()),
          pair.parties()};
}

/// The service is switched on in a VPN that takes its ports whole: every interface is named.
SeededFault service_switched_on(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  std::vector<std::string> ports;
  for (std::size_t i = 1 + names.number(kAccessInterfaceLimit); i > 0; --i) ports.push_back(names.port());
  std::sort(ports.begin(), ports.end());
  const Arrival arrival = names.coin() ? Arrival::added : Arrival::stands;
  std::string named;
  std::vector<ExpectedParty> parties;
  for (const std::string &port : ports) {
    put(draft, vpn.attachment(port), arrival);
    named += port + " ";
    parties.push_back({vpn.attachment(port), arrival == Arrival::added ? ChangeStatus::added : ChangeStatus::changed});
  }
  draft.candidate.push_back(vpn.bridge_domain() + "/transparent-lan-service");
  return {"tls-port-based-vpls",
          fmt::format("All VPLS assigned to interface {}will run as TLS since vpls-group {} vpn-name {} has port based "
                      "TLS behavior",
                      named, vpn.group, vpn.name),
          parties};
}

/// Interfaces are added to a VPN that has the service: they alone are named.
SeededFault interfaces_added_to_service(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  draft.both(vpn.bridge_domain() + "/transparent-lan-service");
  const std::string added = names.port();
  for (std::size_t i = names.number(3); i > 0; --i) draft.both(vpn.attachment(names.port()));
  put(draft, vpn.attachment(added), Arrival::added);
  return {
      "tls-port-based-vpls",
      fmt::format("All VPLS assigned to interface {} will run as TLS since vpls-group {} vpn-name {} has port based "
                  "TLS behavior",
                  added, vpn.group, vpn.name),
      {{vpn.attachment(added), ChangeStatus::added}}};
}

SeededFault port_based_service(Draft &draft, NamePool &names) {
  return names.coin() ? service_switched_on(draft, names) : interfaces_added_to_service(draft, names);
}

}  // namespace

SeededFault member_in_vlan(const Vpn &vpn, Arrival arrival_of_vpn, const std::string &port, std::uint16_t vlan) {
  return {"member-same-dot1q",
          fmt::format("vlan {} interface {} is already assigned to mpls l2vpn {} with the same dot1q. It must be "
                      "configured to another dot1q vlan",
                      vlan, port, vpn.text()),
          {{vpn.attachment(port), status_of(arrival_of_vpn)}, {member_of(vlan, port), ChangeStatus::added}},
          {}};
}

SeededFault member_on_port(const Vpn &vpn, Arrival arrival_of_vpn, const std::string &port, std::uint16_t vlan) {
  return {"member-on-port-based-vpn",
          fmt::format("vlan {} interface {} is already assigned to mpls l2vpn {}", vlan, port, vpn.text()),
          {{vpn.attachment(port), status_of(arrival_of_vpn)}, {member_of(vlan, port), ChangeStatus::added}},
          {}};
}

std::vector<FaultKind> port_faults() { return {{"access-port-based-static-member", whole_port_of_member}}; }

std::vector<FaultKind> member_faults() {
  return {{"member-on-port-based-vpn", member_on_whole_port},
          {"member-same-dot1q", member_in_vlan_of_vpn},
          {"member-on-uplink", member_in_uplink_vlan}};
}

std::vector<FaultKind> warning_faults() {
  return {{"access-on-uplink", access_on_uplink},
          {"tls-beside-vpws", vpls_beside_whole_port},
          {"tls-port-based-vpls", port_based_service}};
}

}  // namespace seeded
