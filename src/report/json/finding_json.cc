#include "report/json/finding_json.h"

#include <nlohmann/json.hpp>

#include "report/json/array.h"

namespace report {
namespace {

using nlohmann::ordered_json;

template <typename Item, typename Reader>
std::vector<Item> items(const ordered_json &json, Reader reader) {
  std::vector<Item> result;
  for (const ordered_json &item : json) result.push_back(reader(item));
  return result;
}

std::optional<std::string> optional_text(const ordered_json &json, const char *name) {
  if (!json.contains(name)) return std::nullopt;
  return json.at(name).get<std::string>();
}

ordered_json place_json(const FilePlace &place) {
  ordered_json json{{"file", place.file}};
  if (place.line != 0) json["line"] = place.line;
  return json;
}

FilePlace read_place(const ordered_json &json) {
  return {json.at("file").get<std::string>(), json.value("line", std::size_t{0})};
}

std::optional<FilePlace> optional_place(const ordered_json &json, const char *name) {
  if (!json.contains(name)) return std::nullopt;
  return read_place(json.at(name));
}

ordered_json node_json(const NodeReport &node) {
  ordered_json json{{"standing", status_name(node.status)}, {"path", node.path}};
  if (node.old_value) json["old"] = *node.old_value;
  if (node.new_value) json["new"] = *node.new_value;
  if (node.running) json["running"] = place_json(*node.running);
  if (node.candidate) json["candidate"] = place_json(*node.candidate);
  return json;
}

ChangeStatus read_status(const std::string &name) {
  for (const auto status :
       {ChangeStatus::unchanged, ChangeStatus::added, ChangeStatus::changed, ChangeStatus::removed}) {
    if (status_name(status) == name) return status;
  }
  throw UnknownNameError("standing \"" + name + "\" is none that is known");
}

NodeReport read_node(const ordered_json &json) {
  NodeReport node;
  node.status = read_status(json.at("standing").get<std::string>());
  node.path = json.at("path").get<std::string>();
  node.old_value = optional_text(json, "old");
  node.new_value = optional_text(json, "new");
  node.running = optional_place(json, "running");
  node.candidate = optional_place(json, "candidate");
  return node;
}

ordered_json party_json(const PartyReport &party) {
  ordered_json json = node_json(party.node);
  if (!party.group.empty()) json["group"] = party.group;
  if (!party.vpn.empty()) json["vpn"] = party.vpn;
  if (!party.interface.empty()) json["interface"] = party.interface;
  if (!party.neighbor.empty()) json["neighbor"] = party.neighbor;
  json["details"] = array(party.details, node_json);
  return json;
}

PartyReport read_party(const ordered_json &json) {
  PartyReport party;
  party.node = read_node(json);
  party.group = json.value("group", "");
  party.vpn = json.value("vpn", "");
  party.interface = json.value("interface", "");
  party.neighbor = json.value("neighbor", "");
  party.details = items<NodeReport>(json.at("details"), read_node);
  return party;
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
  json["change"] = array(finding.change, node_json);
  json["scaffold"] = array(finding.prerequisites, node_json);
  json["parties"] = array(finding.parties, party_json);
  json["enough"] = finding.enough;
  json["in-running"] = finding.in_running;
  json["complete"] = finding.complete;
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
  finding.change = items<NodeReport>(json.at("change"), read_node);
  finding.prerequisites = items<NodeReport>(json.at("scaffold"), read_node);
  finding.parties = items<PartyReport>(json.at("parties"), read_party);
  finding.enough = json.at("enough").get<std::uint64_t>();
  finding.in_running = json.at("in-running").get<bool>();
  finding.complete = json.at("complete").get<bool>();
  if (json.contains("suppressed")) {
    const ordered_json &suppressed = json.at("suppressed");
    finding.suppressed = Suppressed{read_place(suppressed), suppressed.at("reason").get<std::string>()};
  }
  return finding;
}

std::string_view end_name(SearchEnd end) {
  switch (end) {
    case SearchEnd::complete:
      return "";
    case SearchEnd::call_budget:
      return "calls";
    case SearchEnd::time_budget:
      return "time";
    case SearchEnd::contract_violation:
      return "breach";
  }
  return "?";
}

SearchEnd read_end(const std::string &name) {
  for (const auto end : {SearchEnd::call_budget, SearchEnd::time_budget, SearchEnd::contract_violation}) {
    if (end_name(end) == name) return end;
  }
  throw UnknownNameError("ended-by \"" + name + "\" is none that is known");
}

}  // namespace

ordered_json findings_json(const std::vector<Finding> &findings) { return array(findings, finding_json); }

ordered_json search_json(const SearchReport &search) {
  ordered_json json{{"all-faults", search.all_faults},
                    {"calls", search.calls},
                    {"budget", {{"calls", search.budget_calls}, {"seconds", search.budget_seconds}}},
                    {"complete", search.end == SearchEnd::complete}};
  if (search.end != SearchEnd::complete) json["ended-by"] = end_name(search.end);
  if (!search.contract_violation.empty()) json["breach"] = search.contract_violation;
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
  search.contract_violation = json.value("breach", "");
  return search;
}

}  // namespace report
