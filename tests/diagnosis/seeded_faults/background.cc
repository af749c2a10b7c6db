#include "tests/diagnosis/seeded_faults/background.h"

#include <fmt/format.h>

#include <functional>

namespace seeded {
namespace {

void put_removed(Draft &draft, const Lines &lines) {
  draft.running.insert(draft.running.end(), lines.begin(), lines.end());
}

/// A VPN with its VLANs on ports that it shares with others.
void put_vpn(Draft &draft, NamePool &names, const std::vector<std::string> &ports) {
  const Vpn vpn = draw_vpn(names);
  const Arrival arrival = draw_arrival(names);
  const std::string &port = names.one_of(ports);
  add_unrelated(draft, names, vpn, arrival);
  const Claim claim = names.coin() ? vlan_claim(names.vlans()) : range_claim(names.vlans(), 0);
  attach(draft, names, vpn, port, claim, arrival);
}

void put_removed_vpn(Draft &draft, NamePool &names, const std::vector<std::string> &ports) {
  const Vpn vpn = draw_vpn(names);
  put_removed(draft, attached(vpn, names.one_of(ports), vlan_claim(names.vlans())));
  if (names.coin()) draft.both(vpn.path());
}

void put_whole_port(Draft &draft, NamePool &names) {
  attach(draft, names, draw_vpn(names), names.port(), {}, draw_arrival(names));
}

void put_changed_pw_id(Draft &draft, NamePool &names) {
  const std::string neighbor = draw_vpn(names).neighbor(names.neighbor());
  draft.running.push_back(fmt::format("{}/pw-id = {}", neighbor, names.pw_id()));
  draft.candidate.push_back(fmt::format("{}/pw-id = {}", neighbor, names.pw_id()));
}

/// One pw-id towards two neighbours.
void put_pw_id_towards_two(Draft &draft, NamePool &names) {
  const std::uint32_t pw_id = names.pw_id();
  draft.both(fmt::format("{}/pw-id = {}", draw_vpn(names).neighbor(names.neighbor()), pw_id));
  put(draft, fmt::format("{}/pw-id = {}", draw_vpn(names).neighbor(names.neighbor()), pw_id), Arrival::added);
}

void put_members_and_snooping(Draft &draft, NamePool &names) {
  const std::uint16_t vlan = names.vlans();
  put(draft, member_of(vlan, names.port()), names.coin() ? Arrival::stands : Arrival::added);
  put(draft, member_of(vlan, names.port()), Arrival::added);
  put(draft, fmt::format("/config/igmp-snooping{{{}}}/interface{{{}}}", names.name(), names.port()), Arrival::added);
  put_removed(draft, {member_of(names.vlans(), names.port())});
}

/// A member at a higher VLAN of a range than the lowest that has one.
void put_member_that_passes(Draft &draft, NamePool &names) {
  const std::string port = names.port();
  const std::uint16_t first = names.vlans();
  draft.both(member_of(first, names.port()));
  draft.both(member_of(static_cast<std::uint16_t>(first + 5), port));
  attach(draft, names, draw_vpn(names), port, range_claim(first, 0), Arrival::added);
}

// What follows would be refused, or draw a warning, were one part of it left out.

void put_service_port_with_tls(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  draft.both({fmt::format("{}/bridge-mtu = 1500", vpn.bridge_domain()),
              fmt::format("{}/dot1q = {}", vpn.bridge_domain(), names.vlans())});
  put(draft, Lines{vpn.bridge_domain() + "/transparent-lan-service", vpn.attachment(names.service_port())},
      Arrival::added);
}

void put_service_port_without_its_action(Draft &draft, NamePool &names) {
  const std::string port = names.service_port();
  const std::string number = port.substr(port.rfind('-') + 1);
  put_removed(draft, {"/config/service-port{" + number + "}/match/vlan/vlan-id/any"});
  if (names.coin()) draft.both("/config/service-port{" + number + "}");
  attach(draft, names, draw_vpn(names, Family::vpws), port, vlan_claim(names.vlans()), Arrival::added);
}

void put_port_without_its_uplink(Draft &draft, NamePool &names) {
  const std::string port = names.port();
  const std::string name = "uplink-" + names.name();
  const std::uint16_t vlan = names.vlans();
  draft.both({fmt::format("/config/l3-interface{{{}}}/vlan = {}", name, vlan), "/mpls/ldp/interface{" + name + "}",
              member_of(vlan, names.port())});
  put_removed(draft, {member_of(vlan, port)});
  attach(draft, names, draw_vpn(names), port, vlan_claim(names.vlans()), Arrival::added);
}

void put_full_vpn(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  draft.both(fmt::format("{}/dot1q = {}", vpn.bridge_domain(), names.vlans()));
  for (std::uint32_t i = 1; i < kAccessInterfaceLimit; ++i) draft.both(vpn.attachment(names.port()));
  put_removed(draft, {vpn.attachment(names.port())});
  put(draft, vpn.attachment(names.port()), Arrival::added);
}

}  // namespace

void put_background(Draft &draft, NamePool &names) {
  const std::vector<std::string> ports{names.port(), names.port(), names.port()};
  for (std::size_t i = 1 + names.number(6); i > 0; --i) put_vpn(draft, names, ports);
  if (names.coin()) put_removed_vpn(draft, names, ports);
  using Put = void (*)(Draft &, NamePool &);
  for (const Put put_some :
       {put_whole_port, put_changed_pw_id, put_pw_id_towards_two, put_members_and_snooping, put_member_that_passes,
        put_service_port_with_tls, put_service_port_without_its_action, put_port_without_its_uplink, put_full_vpn}) {
    if (names.number(3) == 0) put_some(draft, names);
  }
}

// Names, VLANs and pw-ids from ranges of their own: the pool has not enough for so many.
void put_clean_vpns(Draft &draft, NamePool &names, std::size_t number) {
  const std::vector<std::string> ports{names.port(), names.port()};
  for (std::size_t i = 0; i < number; ++i) {
    const Vpn vpn{i % 2 == 0 ? Family::vpls : Family::vpws, "clean", fmt::format("c{:03}", i)};
    const Arrival arrival = names.coin() ? Arrival::stands : Arrival::added;
    attach(draft, names, vpn, ports[i % 2], vlan_claim(static_cast<std::uint16_t>(1 + i)), arrival);
    put(draft, fmt::format("{}/pw-id = {}", vpn.neighbor("192.168.0.1"), 50'000 + i), arrival);
  }
}

}  // namespace seeded
