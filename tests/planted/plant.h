#ifndef TESTS_PLANTED_PLANT_H
#define TESTS_PLANTED_PLANT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "diagnosis/fault.h"
#include "tests/planted/network.h"

namespace planted {

struct ExpectedParty {
  std::string path;
  diagnosis::Standing standing = diagnosis::Standing::unchanged;
};

diagnosis::Standing standing_of(Arrival arrival);

/// What was planted, as the diagnosis must name it.
struct Planted {
  std::string rule;
  std::optional<std::string> text;     ///< nothing where its numbers depend on all else that is planted
  std::vector<ExpectedParty> parties;  ///< in any order; of a limit none, for there it is counted
};

/// Writes one fault into a commit.
using Plant = Planted (*)(Draft &, Supply &);

struct PlantKind {
  std::string_view rule;
  Plant plant;
};

/// Every kind of fault that a commit can have, one for each message. Limits that count what others plant come last,
/// that of the VPNs behind all.
const std::vector<PlantKind> &plant_kinds();

std::vector<PlantKind> name_plants();
std::vector<PlantKind> pseudowire_plants();
std::vector<PlantKind> access_plants();
std::vector<PlantKind> untagged_and_range_plants();
std::vector<PlantKind> port_plants();
std::vector<PlantKind> service_port_plants();
std::vector<PlantKind> member_plants();
std::vector<PlantKind> warning_plants();
std::vector<PlantKind> limit_plants();

/// Whether the two hide each other by what they are, so that no commit shows both.
bool exclude_each_other(std::string_view rule, std::string_view other_rule);

/// Two VPNs that want the same of one port.
struct Rivals {
  Vpn one;
  Vpn other;
  std::string port;
  Arrival arrival_of_one = Arrival::added;
  Arrival arrival_of_other = Arrival::added;

  std::vector<ExpectedParty> parties() const;

  /// As messages name them: the library takes VPWS before VPLS, and each family in the order of its names; a conflict
  /// is found when the later one is taken.
  const Vpn &later() const;
  const Vpn &earlier() const;
};

/// Of any families and arrivals; the commit touches at least one of them.
Rivals draw_rivals(Supply &supply);

}  // namespace planted

#endif
