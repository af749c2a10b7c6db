#include "report/json/finding_json.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "report/json/advice_json.h"
#include "report/json/array.h"
#include "report/json/node_json.h"

namespace report {
namespace {

using nlohmann::ordered_json;

ordered_json conflict_json(const ConflictReport &conflict) {
  return {{"point", conflict.point},
          {"path", conflict.path},
          {"message", conflict.message},
          {"parties", conflict.parties},
          {"triggers", conflict.triggers}};
}

/// The indexes in the field, each less than `size`.
std::vector<std::size_t> read_indexes(const ordered_json &json, const char *name, std::size_t size) {
  auto indexes = json.at(name).get<std::vector<std::size_t>>();
  for (const std::size_t index : indexes) {
    if (index >= size) throw UnknownNameError(fmt::format("{} has no item {}", name, index));
  }
  return indexes;
}

ConflictReport read_conflict(const ordered_json &json, const Finding &finding) {
  return {json.at("point").get<std::string>(), json.at("path").get<std::string>(),
          json.at("message").get<std::string>(), read_indexes(json, "parties", finding.parties.size()),
          read_indexes(json, "triggers", finding.triggers.size())};
}

ordered_json suppressed_json(const Suppressed &suppressed) {
  ordered_json json = place_json(suppressed.by);
  json["reason"] = suppressed.reason;
  return json;
}

ordered_json finding_json(const Finding &finding) {
  ordered_json json;
  if (!finding.rule.empty()) json["rule"] = finding.rule;
  json["severity"] = finding.is_warning ? "warning" : "rejection";
  json["from-device"] = finding.from_device;
  json["point"] = finding.point;
  json["path"] = finding.path;
  json["message"] = finding.message;
  json["place"] = place_json(finding.place);
  json["parties"] = array(finding.parties, party_json);
  json["triggers"] = array(finding.triggers, party_json);
  json["conflicts"] = array(finding.conflicts, conflict_json);
  json["preexisting"] = finding.is_preexisting;
  json["minimal"] = finding.is_minimal;
  json["enough"] = finding.enough;
  if (finding.enough_at_most != 0) json["enough-at-most"] = finding.enough_at_most;
  json["advice"] = advice_json(finding.advice);
  json["repairs"] = array(finding.repairs, repair_json);
  if (finding.suppressed) json["suppressed"] = suppressed_json(*finding.suppressed);
  return json;
}

Finding read_finding(const ordered_json &json) {
  Finding finding;
  finding.rule = json.value("rule", "");
  finding.is_warning = json.at("severity").get<std::string>() == "warning";
  finding.from_device = json.at("from-device").get<bool>();
  finding.point = json.at("point").get<std::string>();
  finding.path = json.at("path").get<std::string>();
  finding.message = json.at("message").get<std::string>();
  finding.place = read_place(json.at("place"));
  finding.parties = items<PartyReport>(json.at("parties"), read_party);
  finding.triggers = items<PartyReport>(json.at("triggers"), read_party);
  finding.conflicts = items<ConflictReport>(
      json.at("conflicts"), [&finding](const ordered_json &conflict) { return read_conflict(conflict, finding); });
  finding.is_preexisting = json.at("preexisting").get<bool>();
  finding.is_minimal = json.at("minimal").get<bool>();
  finding.enough = json.at("enough").get<std::uint64_t>();
  finding.enough_at_most = json.value("enough-at-most", std::uint64_t{0});
  finding.advice = read_advice(json.at("advice"));
  finding.repairs = items<RepairReport>(json.at("repairs"), read_repair);
  if (json.contains("suppressed")) {
    const ordered_json &suppressed = json.at("suppressed");
    finding.suppressed = Suppressed{read_place(suppressed), suppressed.at("reason").get<std::string>()};
  }
  return finding;
}

SearchEnd read_end(const std::string &name) {
  for (const auto end :
       {SearchEnd::call_budget, SearchEnd::time_budget, SearchEnd::interrupted, SearchEnd::contract_violation}) {
    if (end_name(end) == name) return end;
  }
  throw UnknownNameError("ended-by \"" + name + "\" is none that is known");
}

}  // namespace

std::string_view end_name(SearchEnd end) {
  switch (end) {
    case SearchEnd::complete:
      return "";
    case SearchEnd::call_budget:
      return "calls";
    case SearchEnd::time_budget:
      return "time";
    case SearchEnd::interrupted:
      return "interrupted";
    case SearchEnd::contract_violation:
      return "contract-violation";
  }
  return "?";
}

ordered_json findings_json(const std::vector<Finding> &findings) { return array(findings, finding_json); }

ordered_json search_json(const SearchReport &search) {
  ordered_json json{{"all-faults", search.all_faults},
                    {"calls", search.calls},
                    {"budget", {{"calls", search.budget_calls}, {"seconds", search.budget_seconds}}},
                    {"complete", is_proven_complete(search)}};
  if (search.end != SearchEnd::complete) json["ended-by"] = end_name(search.end);
  json["all-repairs"] = search.has_all_repairs;
  json["unproven-rules"] = search.unproven_rules;
  if (!search.contract_violation.empty()) json["contract-violation"] = search.contract_violation;
  return json;
}

std::vector<Finding> read_findings(const ordered_json &json) { return items<Finding>(json, read_finding); }

SearchReport read_search(const ordered_json &json) {
  SearchReport search;
  search.all_faults = json.at("all-faults").get<bool>();
  search.calls = json.at("calls").get<std::uint64_t>();
  search.budget_calls = json.at("budget").at("calls").get<std::uint64_t>();
  search.budget_seconds = json.at("budget").at("seconds").get<double>();
  if (json.contains("ended-by")) search.end = read_end(json.at("ended-by").get<std::string>());
  search.has_all_repairs = json.value("all-repairs", true);
  search.unproven_rules = json.at("unproven-rules").get<std::vector<std::string>>();
  search.contract_violation = json.value("contract-violation", "");
  return search;
}

}  // namespace report
