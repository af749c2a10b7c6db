#include <fmt/format.h>

#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {
namespace {

using diagnosis::ChangeStatus;

constexpr std::string_view kAllowed =
    "contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)";

std::string invalid_name(NamePool &names) {
  const std::vector<std::string> inserted{" ", "/", "{", "}", "\"", "\\", "#", "ä", "~", ","};
  return names.vpn() + names.one_of(inserted) + names.name();
}

SeededFault group_name(Draft &draft, NamePool &names) {
  const Vpn vpn{Family::vpws, invalid_name(names), names.vpn()};
  draft.candidate.push_back(names.coin() ? vpn.path() : vpn.group_path());
  if (names.coin()) add_unrelated(draft, names, vpn, Arrival::added);
  return {"vpws-group-name",
          fmt::format("VPWS Group name {} {}", vpn.group, kAllowed),
          {{vpn.group_path(), ChangeStatus::added}}};
}

SeededFault vpn_name(Draft &draft, NamePool &names) {
  Vpn vpn = draw_vpn(names, Family::vpws);
  vpn.name = invalid_name(names);
  draft.candidate.push_back(vpn.path());
  add_unrelated(draft, names, vpn, Arrival::added);
  return {"vpws-vpn-name",
          fmt::format("VPWS Group name {} VPN name {} {}", vpn.group, vpn.name, kAllowed),
          {{vpn.path(), ChangeStatus::added}}};
}

}  // namespace

std::vector<FaultKind> name_faults() { return {{"vpws-group-name", group_name}, {"vpws-vpn-name", vpn_name}}; }

}  // namespace seeded
