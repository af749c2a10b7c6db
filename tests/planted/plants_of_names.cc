#include <fmt/format.h>

#include "tests/planted/plant.h"

namespace planted {
namespace {

using diagnosis::Standing;

constexpr std::string_view kAllowed =
    "contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)";

std::string invalid_name(Supply &supply) {
  const std::vector<std::string> inserted{" ", "/", "{", "}", "\"", "\\", "#", "ä", "~", ","};
  return supply.vpn() + supply.one_of(inserted) + supply.name();
}

Planted group_name(Draft &draft, Supply &supply) {
  const Vpn vpn{Family::vpws, invalid_name(supply), supply.vpn()};
  draft.candidate.push_back(supply.coin() ? vpn.path() : vpn.group_path());
  if (supply.coin()) keep_company(draft, supply, vpn, Arrival::added);
  return {"vpws-group-name",
          fmt::format("VPWS Group name {} {}", vpn.group, kAllowed),
          {{vpn.group_path(), Standing::added}}};
}

Planted vpn_name(Draft &draft, Supply &supply) {
  Vpn vpn = draw_vpn(supply, Family::vpws);
  vpn.name = invalid_name(supply);
  draft.candidate.push_back(vpn.path());
  keep_company(draft, supply, vpn, Arrival::added);
  return {"vpws-vpn-name",
          fmt::format("VPWS Group name {} VPN name {} {}", vpn.group, vpn.name, kAllowed),
          {{vpn.path(), Standing::added}}};
}

}  // namespace

std::vector<PlantKind> name_plants() { return {{"vpws-group-name", group_name}, {"vpws-vpn-name", vpn_name}}; }

}  // namespace planted
