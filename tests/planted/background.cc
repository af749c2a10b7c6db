#include "tests/planted/background.h"

#include <fmt/format.h>

#include <functional>

namespace planted {
namespace {

std::string member_of(std::uint16_t vlan, const std::string &port) {
  return fmt::format("/config/vlan{{{}}}/interface{{{}}}", vlan, port);
}

Arrival draw_arrival(Supply &supply) {
  return supply.one_of(std::vector<Arrival>{Arrival::stands, Arrival::added, Arrival::changed});
}

void put_removed(Draft &draft, const Lines &lines) {
  draft.running.insert(draft.running.end(), lines.begin(), lines.end());
}

/// A VPN with its VLANs on ports that it shares with others.
void put_vpn(Draft &draft, Supply &supply, const std::vector<std::string> &ports) {
  const Vpn vpn = draw_vpn(supply);
  const Arrival arrival = draw_arrival(supply);
  const std::string &port = supply.one_of(ports);
  keep_company(draft, supply, vpn, arrival);
  const Claim claim = supply.coin() ? vlan_claim(supply.vlans()) : range_claim(supply.vlans(), 0);
  attach(draft, supply, vpn, port, claim, arrival);
}

void put_removed_vpn(Draft &draft, Supply &supply, const std::vector<std::string> &ports) {
  const Vpn vpn = draw_vpn(supply);
  put_removed(draft, attached(vpn, supply.one_of(ports), vlan_claim(supply.vlans())));
  if (supply.coin()) draft.both(vpn.path());
}

void put_whole_port(Draft &draft, Supply &supply) {
  attach(draft, supply, draw_vpn(supply), supply.port(), {}, draw_arrival(supply));
}

void put_changed_pw_id(Draft &draft, Supply &supply) {
  const std::string neighbor = draw_vpn(supply).neighbor(supply.neighbor());
  draft.running.push_back(fmt::format("{}/pw-id = {}", neighbor, supply.pw_id()));
  draft.candidate.push_back(fmt::format("{}/pw-id = {}", neighbor, supply.pw_id()));
}

/// One pw-id towards two neighbours.
void put_pw_id_towards_two(Draft &draft, Supply &supply) {
  const std::uint32_t pw_id = supply.pw_id();
  draft.both(fmt::format("{}/pw-id = {}", draw_vpn(supply).neighbor(supply.neighbor()), pw_id));
  put(draft, fmt::format("{}/pw-id = {}", draw_vpn(supply).neighbor(supply.neighbor()), pw_id), Arrival::added);
}

void put_members_and_snooping(Draft &draft, Supply &supply) {
  const std::uint16_t vlan = supply.vlans();
  put(draft, member_of(vlan, supply.port()), supply.coin() ? Arrival::stands : Arrival::added);
  put(draft, member_of(vlan, supply.port()), Arrival::added);
  put(draft, fmt::format("/config/igmp-snooping{{{}}}/interface{{{}}}", supply.name(), supply.port()), Arrival::added);
  put_removed(draft, {member_of(supply.vlans(), supply.port())});
}

/// A member at a higher VLAN of a range than the lowest that has one.
void put_member_that_passes(Draft &draft, Supply &supply) {
  const std::string port = supply.port();
  const std::uint16_t first = supply.vlans();
  draft.both(member_of(first, supply.port()));
  draft.both(member_of(static_cast<std::uint16_t>(first + 5), port));
  attach(draft, supply, draw_vpn(supply), port, range_claim(first, 0), Arrival::added);
}

// What follows would be refused, or draw a warning, were one part of it left out.

void put_service_port_with_tls(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpls);
  draft.both({fmt::format("{}/bridge-mtu = 1500", vpn.bridge_domain()),
              fmt::format("{}/dot1q = {}", vpn.bridge_domain(), supply.vlans())});
  put(draft, Lines{vpn.bridge_domain() + "/transparent-lan-service", vpn.attachment(supply.service_port())},
      Arrival::added);
}

void put_service_port_without_its_action(Draft &draft, Supply &supply) {
  const std::string port = supply.service_port();
  const std::string number = port.substr(port.rfind('-') + 1);
  put_removed(draft, {"/config/service-port{" + number + "}/match/vlan/vlan-id/any"});
  if (supply.coin()) draft.both("/config/service-port{" + number + "}");
  attach(draft, supply, draw_vpn(supply, Family::vpws), port, vlan_claim(supply.vlans()), Arrival::added);
}

void put_port_without_its_uplink(Draft &draft, Supply &supply) {
  const std::string port = supply.port();
  const std::string name = "uplink-" + supply.name();
  const std::uint16_t vlan = supply.vlans();
  draft.both({fmt::format("/config/l3-interface{{{}}}/vlan = {}", name, vlan), "/mpls/ldp/interface{" + name + "}",
              member_of(vlan, supply.port())});
  put_removed(draft, {member_of(vlan, port)});
  attach(draft, supply, draw_vpn(supply), port, vlan_claim(supply.vlans()), Arrival::added);
}

void put_full_vpn(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpls);
  draft.both(fmt::format("{}/dot1q = {}", vpn.bridge_domain(), supply.vlans()));
  for (std::uint32_t i = 1; i < kAccessInterfaceLimit; ++i) draft.both(vpn.attachment(supply.port()));
  put_removed(draft, {vpn.attachment(supply.port())});
  put(draft, vpn.attachment(supply.port()), Arrival::added);
}

}  // namespace

void put_background(Draft &draft, Supply &supply) {
  const std::vector<std::string> ports{supply.port(), supply.port(), supply.port()};
  for (std::size_t i = 1 + supply.number(6); i > 0; --i) put_vpn(draft, supply, ports);
  if (supply.coin()) put_removed_vpn(draft, supply, ports);
  using Put = void (*)(Draft &, Supply &);
  for (const Put put_some :
       {put_whole_port, put_changed_pw_id, put_pw_id_towards_two, put_members_and_snooping, put_member_that_passes,
        put_service_port_with_tls, put_service_port_without_its_action, put_port_without_its_uplink, put_full_vpn}) {
    if (supply.number(3) == 0) put_some(draft, supply);
  }
}

}  // namespace planted
