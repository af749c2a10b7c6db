#include <fmt/format.h>

#include "tests/planted/plant.h"

namespace planted {
namespace {

using diagnosis::Standing;

Arrival touched(Supply &supply) { return supply.coin() ? Arrival::added : Arrival::changed; }

Planted unknown_interface(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply);
  const std::string port = "no-such-port-" + supply.name();
  attach(draft, supply, vpn, port, vlan_claim(supply.vlans()), Arrival::added);
  keep_company(draft, supply, vpn, supply.coin() ? Arrival::added : Arrival::stands);
  return {"access-interface-unknown",
          fmt::format("{} interface is not valid. Verify available interfaces", vpn.text()),
          {{vpn.attachment(port), Standing::added}}};
}

// Either of the two interfaces may be the first by name.
Planted mixed_encapsulation(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpls);
  const std::string with = supply.port();
  const std::string without = supply.port();
  const bool with_stands = supply.coin();
  const Arrival arrival_of_without = with_stands || supply.coin() ? Arrival::added : Arrival::stands;
  if (supply.coin()) put(draft, attached(vpn, without, vlan_claim(supply.vlans())), arrival_of_without);
  put(draft, vpn.attachment(without), arrival_of_without);
  put(draft, attached(vpn, with, range_claim(supply.vlans(), 0)), with_stands ? Arrival::stands : Arrival::added);
  return {
      "access-encapsulation-mixed",
      fmt::format("{}: with 'bridge-domain qinq', all access interfaces must have 'encapsulation dot1q'", vpn.text()),
      {{vpn.attachment(without), standing_of(arrival_of_without)},
       {vpn.attachment(with), with_stands ? Standing::unchanged : Standing::added}}};
}

// Snooping is not asked about VPNs: an interface that became one later stands beside a VPN until its bridge domain
// changes.
Planted snooping(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpls);
  const std::string port = supply.port();
  const std::string instance = supply.name();
  const std::string member = fmt::format("/config/igmp-snooping{{{}}}/interface{{{}}}", instance, port);
  const Arrival arrival = supply.one_of(std::vector<Arrival>{Arrival::stands, Arrival::added, Arrival::changed});
  const Arrival arrival_of_member = arrival != Arrival::stands && supply.coin() ? Arrival::added : Arrival::stands;
  put(draft, member, arrival_of_member);
  attach(draft, supply, vpn, port, vlan_claim(supply.vlans()), arrival);
  std::vector<ExpectedParty> parties{{vpn.attachment(port), standing_of(arrival)},
                                     {member, standing_of(arrival_of_member)}};
  if (arrival == Arrival::stands) {
    const std::string trigger = supply.port();
    put(draft, vpn.attachment(trigger), Arrival::added);
    parties.push_back({vpn.attachment(trigger), Standing::added});
  }
  return {"access-igmp-snooping",
          fmt::format("{} interface {} is already assigned to multicast igmp snooping {}", vpn.text(), port, instance),
          parties};
}

// Of a range, the lowest VLAN with a member is the one that is looked at.
Planted static_member(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply);
  const std::string port = supply.port();
  const std::uint16_t first = supply.vlans();
  const bool takes_range = supply.coin();
  const auto vlan = static_cast<std::uint16_t>(takes_range ? first + supply.number(kVlansOfABlock) : first);
  const std::string member = fmt::format("/config/vlan{{{}}}/interface{{{}}}", vlan, port);
  const Arrival arrival = touched(supply);
  const Arrival arrival_of_member = supply.coin() ? Arrival::added : Arrival::stands;
  attach(draft, supply, vpn, port, takes_range ? range_claim(first, 0) : vlan_claim(first), arrival);
  put(draft, member, arrival_of_member);
  return {"access-static-member",
          fmt::format("{} interface {} is already assigned to dot1q vlan {}. It must be configured to another dot1q",
                      vpn.text(), port, vlan),
          {{vpn.attachment(port), standing_of(arrival)}, {member, standing_of(arrival_of_member)}}};
}

Planted whole_port_twice(Draft &draft, Supply &supply) {
  const Rivals rivals = draw_rivals(supply);
  attach(draft, supply, rivals.one, rivals.port, {}, rivals.arrival_of_one);
  attach(draft, supply, rivals.other, rivals.port, {}, rivals.arrival_of_other);
  keep_company(draft, supply, rivals.other, supply.coin() ? Arrival::added : Arrival::stands);
  return {"access-port-based-twice",
          fmt::format("{} & {} must not be configured to the same interface {} on port-based VPNs",
                      rivals.later().text(), rivals.earlier().text(), rivals.port),
          rivals.parties()};
}

// VLAN against VLAN, VLAN against range, range against range.
Planted same_vlan(Draft &draft, Supply &supply) {
  const Rivals rivals = draw_rivals(supply);
  const std::uint16_t first = supply.vlans();
  const auto shared = static_cast<std::uint16_t>(first + supply.number(kVlansOfABlock));
  const Claim claim = supply.coin() ? vlan_claim(shared) : range_claim(first, shared);
  const Claim claim_of_other = supply.coin() ? vlan_claim(shared) : range_claim(shared, shared);
  attach(draft, supply, rivals.one, rivals.port, claim, rivals.arrival_of_one);
  attach(draft, supply, rivals.other, rivals.port, claim_of_other, rivals.arrival_of_other);
  keep_company(draft, supply, rivals.one, supply.coin() ? Arrival::added : Arrival::stands);
  return {"access-same-dot1q",
          fmt::format("{} and {} must not be configured with the same dot1q on interface {}", rivals.later().text(),
                      rivals.earlier().text(), rivals.port),
          rivals.parties()};
}

}  // namespace

std::vector<PlantKind> access_plants() {
  return {{"access-interface-unknown", unknown_interface},
          {"access-encapsulation-mixed", mixed_encapsulation},
          {"access-igmp-snooping", snooping},
          {"access-static-member", static_member},
          {"access-port-based-twice", whole_port_twice},
          {"access-same-dot1q", same_vlan}};
}

}  // namespace planted
