#include "tests/planted/plant.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace planted {
namespace {

// A dot1q-range of several VLANs counts towards both: what is left out for the one can keep the other.
constexpr std::array<std::pair<std::string_view, std::string_view>, 1> kExclusions{
    {{"encapsulation-vlan-limit", "encapsulation-range-limit"}}};

auto place_in_order(const Vpn &vpn) { return std::tuple(vpn.family == Family::vpls, vpn.group, vpn.name); }

Arrival draw_arrival(Supply &supply) {
  return supply.one_of(std::vector<Arrival>{Arrival::stands, Arrival::added, Arrival::changed});
}

}  // namespace

diagnosis::Standing standing_of(Arrival arrival) {
  switch (arrival) {
    case Arrival::added:
      return diagnosis::Standing::added;
    case Arrival::changed:
      return diagnosis::Standing::changed;
    case Arrival::stands:
      break;
  }
  return diagnosis::Standing::unchanged;
}

const std::vector<PlantKind> &plant_kinds() {
  static const std::vector<PlantKind> kinds = [] {
    std::vector<PlantKind> all;
    for (const auto &some : {name_plants(), pseudowire_plants(), access_plants(), untagged_and_range_plants(),
                             port_plants(), service_port_plants(), member_plants(), warning_plants(), limit_plants()}) {
      all.insert(all.end(), some.begin(), some.end());
    }
    return all;
  }();
  return kinds;
}

bool exclude_each_other(std::string_view rule, std::string_view other_rule) {
  return std::any_of(kExclusions.begin(), kExclusions.end(), [&](const auto &pair) {
    return pair == std::pair(rule, other_rule) || pair == std::pair(other_rule, rule);
  });
}

std::vector<ExpectedParty> Rivals::parties() const {
  return {{one.attachment(port), standing_of(arrival_of_one)}, {other.attachment(port), standing_of(arrival_of_other)}};
}

const Vpn &Rivals::later() const { return place_in_order(one) < place_in_order(other) ? other : one; }

const Vpn &Rivals::earlier() const { return &later() == &one ? other : one; }

Rivals draw_rivals(Supply &supply) {
  Rivals rivals{draw_vpn(supply), draw_vpn(supply), supply.port()};
  rivals.arrival_of_one = draw_arrival(supply);
  rivals.arrival_of_other = rivals.arrival_of_one == Arrival::stands ? Arrival::added : draw_arrival(supply);
  return rivals;
}

}  // namespace planted
