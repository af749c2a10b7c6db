#include <fmt/format.h>

#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {
namespace {

using diagnosis::ChangeStatus;

// All is new, or the range is added to the bridge domain's VLAN, or the VLAN changes to where the range begins.
SeededFault range_at_bridge_domain(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  const std::string port = names.port();
  const std::uint16_t vlan = names.vlans();
  const auto last = static_cast<std::uint16_t>(vlan + names.number(kVlansOfABlock));
  const Lines with_other_range = attached(vpn, port, range_claim(names.vlans(), 0));
  const std::string dot1q = vpn.bridge_domain() + "/dot1q = ";
  const std::size_t way = names.number(3);
  if (way == 1) draft.both(with_other_range);
  if (way == 2) draft.running.push_back(dot1q + std::to_string(names.vlans()));
  put(draft, range_line(vpn, port, vlan, last), way == 2 ? Arrival::stands : Arrival::added);
  put(draft, dot1q + std::to_string(vlan), way == 1 ? Arrival::stands : Arrival::added);
  return {"access-range-at-bridge-domain",
          fmt::format("{} interface {} must not be configured with the same dot1q {} between bridge-domain and "
                      "encapsulation minimum value in the dot1q-range [{}-{}]",
                      vpn.text(), port, vlan, vlan, last),
          {{vpn.attachment(port), way == 0 ? ChangeStatus::added : ChangeStatus::changed}}};
}

// Were both changed, both would have the port whole before.
SeededFault untagged_twice(Draft &draft, NamePool &names) {
  ConflictingPair pair = draw_conflicting_pair(names);
  if (pair.arrival_of_one == Arrival::changed) pair.arrival_of_other = Arrival::added;
  attach(draft, names, pair.one, pair.port, {Claim::untagged, 0, 0}, pair.arrival_of_one);
  attach(draft, names, pair.other, pair.port, {Claim::untagged, 0, 0}, pair.arrival_of_other);
  add_unrelated(draft, names, pair.other, names.coin() ? Arrival::added : Arrival::stands);
  return {"access-untagged-twice",
          fmt::format("{} encapsulation untagged cannot be set simultaneously in {} and {}", pair.port,
                      pair.later().text(), pair.earlier().text()),
          pair.parties()};
}

}  // namespace

std::vector<FaultKind> untagged_and_range_faults() {
  return {{"access-range-at-bridge-domain", range_at_bridge_domain}, {"access-untagged-twice", untagged_twice}};
}

}  // namespace seeded
