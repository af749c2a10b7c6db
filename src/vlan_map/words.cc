#include "vlan_map/words.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace vlan_map {
namespace {

std::string counted(std::size_t count, std::string_view one) {
  return fmt::format("{} {}{}", count, one, count == 1 ? "" : "s");
}

std::size_t count_claims(const Map &map, Standing standing) {
  std::size_t count = 0;
  for (const Port &port : map.ports) {
    count += static_cast<std::size_t>(std::count_if(
        port.claims.begin(), port.claims.end(), [standing](const Claim &claim) { return claim.standing == standing; }));
  }
  return count;
}

}  // namespace

std::string_view class_of(Application application) {
  static constexpr std::array<std::string_view, 5> names{"vpws", "vpls", "member", "uplink", "snooping"};
  return names.at(static_cast<std::size_t>(application));
}

std::string_view class_of(Standing standing) {
  static constexpr std::array<std::string_view, 4> names{"unchanged", "added", "changed", "removed"};
  return names.at(static_cast<std::size_t>(standing));
}

char letter_of(Application application) {
  static constexpr std::string_view letters = "WLMUS";
  return letters.at(static_cast<std::size_t>(application));
}

char sign_of(Standing standing) {
  static constexpr std::string_view signs{"\0+~-", 4};
  return signs.at(static_cast<std::size_t>(standing));
}

std::string text_of(const VlanRange &vlans) {
  if (vlans == kUntagged) return "untagged";
  if (vlans == kWholePort) return "whole port";
  if (vlans.first == vlans.last) return fmt::format("VLAN {}", vlans.first);
  return fmt::format("VLANs {}-{}", vlans.first, vlans.last);
}

std::string group_text(const Claim &claim) {
  switch (claim.application) {
    case Application::vpws:
      return "vpws-group " + claim.group;
    case Application::vpls:
      return "vpls-group " + claim.group;
    case Application::vlan_manager:
      return "VLAN manager";
    case Application::uplink:
      return "LDP uplink";
    case Application::snooping:
      break;
  }
  return "igmp-snooping";
}

std::string vpn_text(const Claim &claim) {
  switch (claim.application) {
    case Application::vpws:
    case Application::vpls:
      return "vpn " + claim.vpn;
    case Application::vlan_manager:
      return "vlan " + claim.vpn;
    case Application::uplink:
    case Application::snooping:
      break;
  }
  return claim.vpn;
}

std::string commit_text(const Claim &claim) {
  std::string text{class_of(claim.standing)};
  if (claim.formerly) text += ", was " + text_of(*claim.formerly);
  return text;
}

std::string conflict_text(const Map &map, std::size_t conflict) {
  return fmt::format("{} {}", map.conflicts[conflict].is_warning ? "warning" : "rejection", conflict + 1);
}

std::string conflict_sign(const Map &map, std::size_t conflict) {
  return fmt::format("{}{}", map.conflicts[conflict].is_warning ? "!" : "!!", conflict + 1);
}

std::string conflicts_text(const Map &map, const std::vector<std::size_t> &conflicts) {
  std::string text;
  for (const std::size_t conflict : conflicts) {
    if (!text.empty()) text += "; ";
    text += conflict_text(map, conflict) + ": " + map.conflicts[conflict].message;
  }
  return text;
}

std::string sentence_of(const Map &map, const Port &port, const Claim &claim) {
  std::string text = fmt::format("{}: {} {}, {}, {}", port.name, group_text(claim), vpn_text(claim),
                                 text_of(claim.vlans), commit_text(claim));
  if (!claim.conflicts.empty()) text += "; " + conflicts_text(map, claim.conflicts);
  return text;
}

std::string signs_of(const Map &map, const Claim &claim) {
  const std::string conflict = claim.conflicts.empty() ? "" : conflict_sign(map, claim.conflicts.front());
  return conflict + former_signs_of(claim);
}

std::string former_signs_of(const Claim &claim) {
  std::string signs;
  if (const char sign = sign_of(claim.standing)) signs += sign;
  return signs + letter_of(claim.application);
}

std::string verdict_text(const Map &map) {
  const auto warnings = static_cast<std::size_t>(std::count_if(
      map.conflicts.begin(), map.conflicts.end(), [](const Conflict &conflict) { return conflict.is_warning; }));
  const std::size_t rejections = map.conflicts.size() - warnings;
  std::string text = "The commit is ";
  text += map.decision == host::Decision::rejected ? "rejected" : "accepted";
  if (!map.conflicts.empty()) {
    text += fmt::format(": {}, {}", counted(rejections, "rejection"), counted(warnings, "warning"));
  }
  if (!map.complete) text += "; the search was ended before all was found";
  return text + ".";
}

std::string count_text(const Map &map) {
  std::size_t claims = 0;
  for (const Port &port : map.ports) claims += port.claims.size();
  return fmt::format("{}, {}: {} added, {} changed, {} removed", counted(map.ports.size(), "port"),
                     counted(claims, "claim"), count_claims(map, Standing::added), count_claims(map, Standing::changed),
                     count_claims(map, Standing::removed));
}

}  // namespace vlan_map
