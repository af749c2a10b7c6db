#include "report/profile_faults.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "element/input/input_fault.h"
#include "element/profile/nearest_interfaces.h"
#include "rules/rule.h"

namespace report {
namespace {

using element::CardLimits;

constexpr std::size_t kMostNear = 3;

struct CardLimit {
  std::optional<std::uint32_t> CardLimits::*value;
  const char *field;
  const char *rule;
  int allowed;  ///< what the library takes a limit for that it cannot read
};

constexpr std::array<CardLimit, 4> kLimits{{
    {&CardLimits::vpn_max, "vpn-max", "vpn-limit", -1},
    {&CardLimits::access_ports, "access-ports", "access-interface-limit", -1},
    {&CardLimits::selective_encapsulation_vlan_entries, "selective-encapsulation-vlan-entries",
     "encapsulation-vlan-limit", 0},
    {&CardLimits::selective_encapsulation_vlan_ranges, "selective-encapsulation-vlan-ranges",
     "encapsulation-range-limit", 0},
}};

bool was_asked(const host::Verdict &verdict, std::string_view point) {
  return std::any_of(verdict.points.begin(), verdict.points.end(),
                     [&](const host::PointVerdict &asked) { return asked.point == point; });
}

void mark(PartyReport &party, const element::Profile &profile) {
  // Layer-3 interfaces and uplinks are none of the profile's.
  if (party.vpn.empty() || party.interface.empty() || profile.by_name(party.interface) != nullptr) return;
  party.near_interfaces = element::nearest_interfaces(party.interface, profile, kMostNear);
}

}  // namespace

std::vector<MissingLimit> missing_limits(const element::Profile &profile, const host::Verdict &verdict) {
  std::vector<MissingLimit> missing;
  for (const CardLimit &limit : kLimits) {
    if (profile.card.*limit.value || !was_asked(verdict, rules::find_rule(limit.rule)->point)) continue;
    missing.push_back({limit.field, limit.rule, limit.allowed});
  }
  return missing;
}

std::string to_text(const MissingLimit &limit, const std::string &file) {
  const std::string fault = fmt::format("missing, so that the library allows {} (rule {})", limit.allowed, limit.rule);
  return element::input_fault({file, 0, "card/" + limit.field}, fault, "the card's limit").what();
}

void mark_unknown_interfaces(std::vector<Finding> &findings, const element::Profile &profile) {
  for (Finding &finding : findings) {
    for (PartyReport &party : finding.parties) mark(party, profile);
    for (PartyReport &party : finding.triggers) mark(party, profile);
  }
}

}  // namespace report
