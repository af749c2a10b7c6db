#include <fmt/format.h>

#include "tests/planted/plant.h"

namespace planted {
namespace {

using diagnosis::Standing;

// All is new, or the range is added to the bridge domain's VLAN, or the VLAN changes to where the range begins.
Planted range_at_bridge_domain(Draft &draft, Supply &supply) {
  const Vpn vpn = draw_vpn(supply, Family::vpls);
  const std::string port = supply.port();
  const std::uint16_t vlan = supply.vlans();
  const auto last = static_cast<std::uint16_t>(vlan + supply.number(kVlansOfABlock));
  const Lines with_other_range = attached(vpn, port, range_claim(supply.vlans(), 0));
  const std::string dot1q = vpn.bridge_domain() + "/dot1q = ";
  const std::size_t way = supply.number(3);
  if (way == 1) draft.both(with_other_range);
  if (way == 2) draft.running.push_back(dot1q + std::to_string(supply.vlans()));
  put(draft, range_line(vpn, port, vlan, last), way == 2 ? Arrival::stands : Arrival::added);
  put(draft, dot1q + std::to_string(vlan), way == 1 ? Arrival::stands : Arrival::added);
  return {"access-range-at-bridge-domain",
          fmt::format("{} interface {} must not be configured with the same dot1q {} between bridge-domain and "
                      "encapsulation minimum value in the dot1q-range [{}-{}]",
                      vpn.text(), port, vlan, vlan, last),
          {{vpn.attachment(port), way == 0 ? Standing::added : Standing::changed}}};
}

// Were both changed, both would have the port whole before.
Planted untagged_twice(Draft &draft, Supply &supply) {
  Rivals rivals = draw_rivals(supply);
  if (rivals.arrival_of_one == Arrival::changed) rivals.arrival_of_other = Arrival::added;
  attach(draft, supply, rivals.one, rivals.port, {Claim::untagged, 0, 0}, rivals.arrival_of_one);
  attach(draft, supply, rivals.other, rivals.port, {Claim::untagged, 0, 0}, rivals.arrival_of_other);
  keep_company(draft, supply, rivals.other, supply.coin() ? Arrival::added : Arrival::stands);
  return {"access-untagged-twice",
          fmt::format("{} encapsulation untagged cannot be set simultaneously in {} and {}", rivals.port,
                      rivals.later().text(), rivals.earlier().text()),
          rivals.parties()};
}

}  // namespace

std::vector<PlantKind> untagged_and_range_plants() {
  return {{"access-range-at-bridge-domain", range_at_bridge_domain}, {"access-untagged-twice", untagged_twice}};
}

}  // namespace planted
