#include "tests/diagnosis/seeded_faults/seeded_fault.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace seeded {
namespace {

// A dot1q-range of several VLANs counts towards both: what is left out for the one can keep the other.
constexpr std::array<std::pair<std::string_view, std::string_view>, 1> kExclusions{
    {{"encapsulation-vlan-limit", "encapsulation-range-limit"}}};

auto place_in_order(const Vpn &vpn) { return std::tuple(vpn.family == Family::vpls, vpn.group, vpn.name); }

}  // namespace

diagnosis::ChangeStatus status_of(Arrival arrival) {
  switch (arrival) {
    case Arrival::added:
      return diagnosis::ChangeStatus::added;
    case Arrival::changed:
      return diagnosis::ChangeStatus::changed;
    case Arrival::stands:
      break;
  }
  return diagnosis::ChangeStatus::unchanged;
}

const std::vector<FaultKind> &fault_kinds() {
  static const std::vector<FaultKind> kinds = [] {
    std::vector<FaultKind> all;
    for (const auto &some : {name_faults(), pseudowire_faults(), access_faults(), untagged_and_range_faults(),
                             port_faults(), service_port_faults(), member_faults(), warning_faults(), limit_faults()}) {
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

std::vector<ExpectedParty> ConflictingPair::parties() const {
  return {{one.attachment(port), status_of(arrival_of_one)}, {other.attachment(port), status_of(arrival_of_other)}};
}

const Vpn &ConflictingPair::later() const { return place_in_order(one) < place_in_order(other) ? other : one; }

const Vpn &ConflictingPair::earlier() const { return &later() == &one ? other : one; }

ConflictingPair draw_conflicting_pair(NamePool &names) {
  ConflictingPair pair{draw_vpn(names), draw_vpn(names), names.port()};
  pair.arrival_of_one = draw_arrival(names);
  pair.arrival_of_other = pair.arrival_of_one == Arrival::stands ? Arrival::added : draw_arrival(names);
  return pair;
}

}  // namespace seeded
