#include "vlan_map/labels.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace vlan_map {
namespace {

std::string counted(std::size_t count, std::string_view one) {
  return fmt::format("{} {}{}", count, one, count == 1 ? "" : "s");
}

struct ClaimCounts {
  std::size_t all = 0;
  std::array<std::size_t, 4> by_status{};

  void add(const Port &port) {
    all += port.claims.size();
    for (const Claim &claim : port.claims) ++by_status.at(static_cast<std::size_t>(claim.status));
  }

  std::string text() const {
    const auto of = [this](ChangeStatus status) { return by_status.at(static_cast<std::size_t>(status)); };
    return fmt::format("{}: {} added, {} changed, {} removed", counted(all, "claim"), of(ChangeStatus::added),
                       of(ChangeStatus::changed), of(ChangeStatus::removed));
  }
};

}  // namespace

std::string_view class_of(Claimant claimant) {
  static constexpr std::array<std::string_view, 5> names{"vpws", "vpls", "member", "uplink", "snooping"};
  return names.at(static_cast<std::size_t>(claimant));
}

std::string_view class_of(ChangeStatus status) {
  static constexpr std::array<std::string_view, 4> names{"unchanged", "added", "changed", "removed"};
  return names.at(static_cast<std::size_t>(status));
}

char letter_of(Claimant claimant) {
  static constexpr std::string_view letters = "WLMUS";
  return letters.at(static_cast<std::size_t>(claimant));
}

char sign_of(ChangeStatus status) {
  static constexpr std::string_view signs{"\0+~-", 4};
  return signs.at(static_cast<std::size_t>(status));
}

std::string text_of(const VlanRange &vlans) {
  if (vlans == kUntagged || vlans == kWholePort) return short_text_of(vlans);
  return (vlans.first == vlans.last ? "VLAN " : "VLANs ") + short_text_of(vlans);
}

std::string short_text_of(const VlanRange &vlans) {
  if (vlans == kUntagged) return "untagged";
  if (vlans == kWholePort) return "whole port";
  return vlans.first == vlans.last ? fmt::to_string(vlans.first) : fmt::format("{}-{}", vlans.first, vlans.last);
}

std::string group_text(const Claim &claim) {
  switch (claim.claimant) {
    case Claimant::vpws:
      return "vpws-group " + claim.group;
    case Claimant::vpls:
      return "vpls-group " + claim.group;
    case Claimant::static_member:
      return "VLAN manager";
    case Claimant::uplink:
      return "LDP uplink";
    case Claimant::snooping:
      break;
  }
  return "igmp-snooping";
}

std::string vpn_text(const Claim &claim) {
  switch (claim.claimant) {
    case Claimant::vpws:
    case Claimant::vpls:
      return "vpn " + claim.vpn;
    case Claimant::static_member:
      return "vlan " + claim.vpn;
    case Claimant::uplink:
    case Claimant::snooping:
      break;
  }
  return claim.vpn;
}

std::string commit_text(const Claim &claim) {
  std::string text{class_of(claim.status)};
  if (claim.previous_vlans) text += ", was " + text_of(*claim.previous_vlans);
  return text;
}

std::string conflict_text(const Map &map, std::size_t conflict) {
  return fmt::format("{} {}", map.conflicts[conflict].finding.is_warning ? "warning" : "rejection", conflict + 1);
}

std::string conflict_sign(const Map &map, std::size_t conflict) {
  return fmt::format("{}{}", map.conflicts[conflict].finding.is_warning ? "!" : "!!", conflict + 1);
}

std::string conflicts_text(const Map &map, const std::vector<std::size_t> &conflicts) {
  std::string text;
  for (const std::size_t conflict : conflicts) {
    if (!text.empty()) text += "; ";
    text += conflict_text(map, conflict) + ": " + map.conflicts[conflict].finding.message;
  }
  return text;
}

std::string sentence_of(const Map &map, const Port &port, const Claim &claim) {
  std::string text = fmt::format("{}: {} {}, {}, {}", port.name, group_text(claim), vpn_text(claim),
                                 text_of(claim.vlans), commit_text(claim));
  if (!claim.conflicts.empty()) text += "; " + conflicts_text(map, claim.conflicts);
  return text;
}

std::string badge_of(const Map &map, const Claim &claim) {
  const std::string conflict = claim.conflicts.empty() ? "" : conflict_sign(map, claim.conflicts.front());
  return conflict + previous_badge(claim);
}

std::string previous_badge(const Claim &claim) {
  std::string badge;
  if (const char sign = sign_of(claim.status)) badge += sign;
  return badge + letter_of(claim.claimant);
}

std::string verdict_text(const Map &map) {
  const auto warnings =
      static_cast<std::size_t>(std::count_if(map.conflicts.begin(), map.conflicts.end(),
                                             [](const Conflict &conflict) { return conflict.finding.is_warning; }));
  const std::size_t rejections = map.conflicts.size() - warnings;
  std::string text = "The commit is ";
  text += map.decision == host::Decision::rejected ? "rejected" : "accepted";
  if (!map.conflicts.empty()) {
    text += fmt::format(": {}, {}", counted(rejections, "rejection"), counted(warnings, "warning"));
  }
  if (!map.complete) text += "; the search was ended before all was found";
  return text + ".";
}

std::string count_text(const Port &port) {
  ClaimCounts counts;
  counts.add(port);
  return counts.text();
}

std::string count_text(const Map &map) {
  ClaimCounts counts;
  for (const Port &port : map.ports) counts.add(port);
  return fmt::format("{}, {}", counted(map.ports.size(), "port"), counts.text());
}

}  // namespace vlan_map
