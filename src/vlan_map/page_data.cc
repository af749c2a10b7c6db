#include "vlan_map/page_data.h"

#include <nlohmann/json.hpp>
#include <unordered_map>

#include "report/escape/markup.h"
#include "vlan_map/free_vlans.h"
#include "vlan_map/labels.h"
#include "vlan_map/page_tables.h"

namespace vlan_map {
namespace {

using Json = nlohmann::ordered_json;

/// Any bytes as text that shows; no character of it is markup in JSON.
std::string shown(const std::string &text) { return report::to_markup(text, ""); }

/// Texts by numbers, each once.
class NameTable {
 public:
  std::size_t number_of(const std::string &name) {
    const auto [entry, is_new] = numbers_.try_emplace(name, names_.size());
    if (is_new) names_.push_back(shown(name));
    return entry->second;
  }

  Json take() { return std::move(names_); }

 private:
  std::unordered_map<std::string, std::size_t> numbers_;
  Json names_ = Json::array();
};

Json claim_data(const Claim &claim, NameTable &names) {
  const std::string vpn = claim.group.empty() ? vpn_text(claim) : claim.vpn;
  Json data{static_cast<int>(claim.claimant),
            static_cast<int>(claim.status),
            claim.vlans.first,
            claim.vlans.last,
            names.number_of(claim.group.empty() ? group_text(claim) : claim.group),
            names.number_of(vpn),
            claim.conflicts};
  if (claim.previous_vlans) {
    data.push_back(claim.previous_vlans->first);
    data.push_back(claim.previous_vlans->last);
  }
  return data;
}

Json port_data(const Port &port, NameTable &names) {
  Json free = Json::array();
  for (const VlanRange &span : free_vlans(port)) free.push_back({span.first, span.last});
  Json claims = Json::array();
  for (const Claim &claim : port.claims) claims.push_back(claim_data(claim, names));
  return {{"name", shown(port.name)},
          {"inProfile", port.in_profile},
          {"conflicts", port.conflicts},
          {"free", std::move(free)},
          {"claims", std::move(claims)}};
}

Json conflict_data(const Conflict &conflict, const ClaimNumbers &numbers) {
  Json claims = Json::array();
  for (const ClaimPlace &place : conflict.claims) claims.push_back(numbers.of(place));
  Json overlaps = Json::array();
  for (const auto &[port, vlans] : conflict.overlaps) overlaps.push_back({port, vlans.first, vlans.last});
  return {{"isWarning", conflict.finding.is_warning},
          {"claims", std::move(claims)},
          {"ports", conflict.ports},
          {"overlaps", std::move(overlaps)}};
}

/// "<" begins an end tag or a comment in a script element.
std::string without_tags(const std::string &json) {
  std::string text;
  for (const char character : json) {
    if (character == '<') {
      text += "\\u003c";
    } else {
      text += character;
    }
  }
  return text;
}

}  // namespace

std::string page_data(const Map &map) {
  NameTable names;
  Json ports = Json::array();
  for (const Port &port : map.ports) ports.push_back(port_data(port, names));
  const ClaimNumbers numbers(map);
  Json conflicts = Json::array();
  for (const Conflict &conflict : map.conflicts) conflicts.push_back(conflict_data(conflict, numbers));
  const Json data{{"lastVlan", kLastVlan},
                  {"names", names.take()},
                  {"ports", std::move(ports)},
                  {"conflicts", std::move(conflicts)}};
  return without_tags(data.dump());
}

}  // namespace vlan_map
