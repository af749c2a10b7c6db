#include <fmt/format.h>

#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {
namespace {

using diagnosis::ChangeStatus;

Arrival touched(NamePool &names) { return names.coin() ? Arrival::added : Arrival::changed; }

SeededFault unknown_interface(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names);
  const std::string port = "no-such-port-" + names.name();
  attach(draft, names, vpn, port, vlan_claim(names.vlans()), Arrival::added);
  add_unrelated(draft, names, vpn, names.coin() ? Arrival::added : Arrival::stands);
  return {"access-interface-unknown",
          fmt::format("{} interface is not valid. Verify available interfaces", vpn.text()),
          {{vpn.attachment(port), ChangeStatus::added}}};
}

// Either of the two interfaces may be the first by name.
SeededFault mixed_encapsulation(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  const std::string with = names.port();
  const std::string without = names.port();
  const bool with_stands = names.coin();
  const Arrival arrival_of_without = with_stands || names.coin() ? Arrival::added : Arrival::stands;
  const bool has_vlan = names.coin();
  if (has_vlan) put(draft, attached(vpn, without, vlan_claim(names.vlans())), arrival_of_without);
  put(draft, vpn.attachment(without), arrival_of_without);
  const ChangeStatus beside = has_vlan ? ChangeStatus::changed : ChangeStatus::unchanged;
  const ChangeStatus status_of_with = with_stands ? beside : ChangeStatus::added;
  put(draft, attached(vpn, with, range_claim(names.vlans(), 0)), with_stands ? Arrival::stands : Arrival::added);
  return {
      "access-encapsulation-mixed",
      fmt::format("{}: with 'bridge-domain qinq', all access interfaces must have 'encapsulation dot1q'", vpn.text()),
      {{vpn.attachment(without), status_of(arrival_of_without)}, {vpn.attachment(with), status_of_with}}};
}

// Snooping is not asked about VPNs: an interface that became one later stands beside a VPN until its bridge domain
// changes.
SeededFault snooping(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  const std::string port = names.port();
  const std::string instance = names.name();
  const std::string member = fmt::format("/config/igmp-snooping{{{}}}/interface{{{}}}", instance, port);
  const Arrival arrival = names.one_of(std::vector<Arrival>{Arrival::stands, Arrival::added, Arrival::changed});
  const Arrival arrival_of_member = arrival != Arrival::stands && names.coin() ? Arrival::added : Arrival::stands;
  put(draft, member, arrival_of_member);
  attach(draft, names, vpn, port, vlan_claim(names.vlans()), arrival);
  std::vector<ExpectedParty> parties{{vpn.attachment(port), status_of(arrival)},
                                     {member, status_of(arrival_of_member)}};
  if (arrival == Arrival::stands) {
    const std::string trigger = names.port();
    put(draft, vpn.attachment(trigger), Arrival::added);
    parties.push_back({vpn.attachment(trigger), ChangeStatus::added});
  }
  return {"access-igmp-snooping",
          fmt::format("{} interface {} is already assigned to multicast igmp snooping {}", vpn.text(), port, instance),
          parties};
}

// Of a range, the lowest VLAN with a member is the one that is looked at.
SeededFault static_member(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names);
  const std::string port = names.port();
  const std::uint16_t first = names.vlans();
  const bool takes_range = names.coin();
  const auto vlan = static_cast<std::uint16_t>(takes_range ? first + names.number(kVlansOfABlock) : first);
  const std::string member = fmt::format("/config/vlan{{{}}}/interface{{{}}}", vlan, port);
  const Arrival arrival = touched(names);
  const Arrival arrival_of_member = names.coin() ? Arrival::added : Arrival::stands;
  attach(draft, names, vpn, port, takes_range ? range_claim(first, 0) : vlan_claim(first), arrival);
  put(draft, member, arrival_of_member);
  std::vector<SeededFault> besides;
  if (arrival_of_member == Arrival::added) besides.push_back(member_in_vlan(vpn, arrival, port, vlan));
  return {"access-static-member",
          fmt::format("{} interface {} is already assigned to dot1q vlan {}. It must be configured to another dot1q",
                      vpn.text(), port, vlan),
          {{vpn.attachment(port), status_of(arrival)}, {member, status_of(arrival_of_member)}},
          besides};
}

SeededFault whole_port_twice(Draft &draft, NamePool &names) {
  const ConflictingPair pair = draw_conflicting_pair(names);
  attach(draft, names, pair.one, pair.port, {}, pair.arrival_of_one);
  attach(draft, names, pair.other, pair.port, {}, pair.arrival_of_other);
  add_unrelated(draft, names, pair.other, names.coin() ? Arrival::added : Arrival::stands);
  return {"access-port-based-twice",
          fmt::format("{} & {} must not be configured to the same interface {} on port-based VPNs", pair.later().text(),
                      pair.earlier().text(), pair.port),
          pair.parties()};
}

// VLAN against VLAN, VLAN against range, range against range.
SeededFault same_vlan(Draft &draft, NamePool &names) {
  const ConflictingPair pair = draw_conflicting_pair(names);
  const std::uint16_t first = names.vlans();
  const auto shared = static_cast<std::uint16_t>(first + names.number(kVlansOfABlock));
  const Claim claim = names.coin() ? vlan_claim(shared) : range_claim(first, shared);
  const Claim claim_of_other = names.coin() ? vlan_claim(shared) : range_claim(shared, shared);
  attach(draft, names, pair.one, pair.port, claim, pair.arrival_of_one);
  attach(draft, names, pair.other, pair.port, claim_of_other, pair.arrival_of_other);
  add_unrelated(draft, names, pair.one, names.coin() ? Arrival::added : Arrival::stands);
  return {"access-same-dot1q",
          fmt::format("{} and {} must not be configured with the same dot1q on interface {}", pair.later().text(),
                      pair.earlier().text(), pair.port),
          pair.parties()};
}

}  // namespace

std::vector<FaultKind> access_faults() {
  return {{"access-interface-unknown", unknown_interface},
          {"access-encapsulation-mixed", mixed_encapsulation},
          {"access-igmp-snooping", snooping},
          {"access-static-member", static_member},
          {"access-port-based-twice", whole_port_twice},
          {"access-same-dot1q", same_vlan}};
}

}  // namespace seeded
