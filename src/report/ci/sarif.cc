#include "report/ci/sarif.h"

#include <fmt/format.h>

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "report/ci/sarif_rules.h"
#include "report/escape/file_uri.h"
#include "report/json/advice_json.h"
#include "report/json/array.h"
#include "report/json/json_text.h"
#include "report/text/advice_text.h"
#include "report/text/findings_text.h"
#include "rules/rule.h"

namespace report {
namespace {

using nlohmann::ordered_json;

ordered_json message_json(std::string_view text) { return {{"text", sarif_text(text)}}; }

ordered_json physical_json(const FilePlace &place) {
  ordered_json json{{"artifactLocation", {{"uri", file_uri(place.file)}}}};
  if (place.line != 0) json["region"] = {{"startLine", place.line}};
  return json;
}

ordered_json node_location(const FilePlace *place, std::string_view path) {
  ordered_json json = ordered_json::object();
  if (place != nullptr && !place->file.empty()) json["physicalLocation"] = physical_json(*place);
  json["logicalLocations"] = ordered_json::array({{{"fullyQualifiedName", path}}});
  return json;
}

ordered_json party_location(const PartyReport &party, std::string_view lead = "") {
  ordered_json json = node_location(place_of(party.node), party.node.path);
  json["message"] = message_json(fmt::format("{}{}: {}", lead, title_of(party), status_text(party.node)));
  return json;
}

/// FNV-1a: the same on every machine and in every version, as a reader's database needs it.
std::string fingerprint(const std::string &text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  return fmt::format("{:016x}", hash);
}

/// What stays the same while lines move and other parts of the commit come and go. A limit is one fault, whoever fills
/// it.
std::string identity(const Finding &finding) {
  std::string text = finding.rule.empty() ? finding.message : finding.rule;
  if (finding.enough != 0) return text;
  for (const PartyReport &party : finding.parties) text += '\0' + party.node.path;
  return finding.parties.empty() ? text + '\0' + finding.path : text;
}

ordered_json suppression_json(const Suppressed &suppressed) {
  return {{"kind", "external"},
          {"justification", suppressed.reason},
          {"location", {{"physicalLocation", physical_json(suppressed.by)}}}};
}

class ResultWriter {
 public:
  ResultWriter() {
    for (const rules::Rule &rule : rules::all_rules()) indices_.emplace(rule.id, indices_.size());
  }

  ordered_json operator()(const CommitReport &commit, const Finding &finding) const {
    ordered_json json = ordered_json::object();
    add_rule(json, finding);
    json["level"] = finding.is_warning ? "warning" : "error";
    json["message"] = message_json((finding.from_device ? "" : "it would say next: ") + finding.message);
    add_locations(json, finding);
    json["partialFingerprints"] = {{"conflict/v1", fingerprint(identity(finding))}};
    if (finding.suppressed) json["suppressions"] = ordered_json::array({suppression_json(*finding.suppressed)});
    json["properties"] = {{"commit", commit.name},
                          {"from-device", finding.from_device},
                          {"preexisting", finding.is_preexisting},
                          {"minimal", finding.is_minimal}};
    if (has_advice(finding.advice)) json["properties"]["advice"] = advice_json(finding.advice);
    if (!finding.repairs.empty()) json["properties"]["repairs"] = array(finding.repairs, repair_json);
    if (commit.is_rollback) json["properties"]["rollback"] = true;
    return json;
  }

 private:
  void add_rule(ordered_json &json, const Finding &finding) const {
    if (finding.rule.empty()) return;
    json["ruleId"] = finding.rule;
    const auto index = indices_.find(finding.rule);
    if (index != indices_.end()) json["ruleIndex"] = index->second;
  }

  static void add_locations(ordered_json &json, const Finding &finding) {
    // The place is that of the first party, if the commit touches one.
    const bool is_party = !finding.parties.empty() && finding.parties[0].node.status != ChangeStatus::unchanged;
    const std::string &path = is_party ? finding.parties[0].node.path : finding.path;
    json["locations"] = ordered_json::array({node_location(&finding.place, path)});
    ordered_json related = ordered_json::array();
    for (std::size_t i = is_party ? 1 : 0; i < finding.parties.size(); ++i) {
      related.push_back(party_location(finding.parties[i]));
      related.back()["id"] = related.size();
    }
    for (const PartyReport &trigger : finding.triggers) {
      related.push_back(party_location(trigger, "makes the library look: "));
      related.back()["id"] = related.size();
    }
    if (!related.empty()) json["relatedLocations"] = std::move(related);
  }

  std::map<std::string_view, std::size_t> indices_;
};

ordered_json refusal_json(const CommitReport &commit) {
  return {{"ruleId", "refused"},
          {"level", "error"},
          {"message", message_json("refused: " + commit.refusal)},
          {"properties", {{"commit", commit.name}}}};
}

/// What could not be decided is a result of its own: a reader that shows results alone must not take it for accepted.
ordered_json undecided_json(const CommitReport &commit) {
  ordered_json json{{"ruleId", "not-decided"}, {"level", "error"}, {"message", message_json(commit.error)}};
  if (!commit.error_place.file.empty()) {
    json["locations"] = ordered_json::array({{{"physicalLocation", physical_json(commit.error_place)}}});
  }
  json["properties"] = {{"commit", commit.name}};
  return json;
}

/// What to take back for all findings of a commit together.
ordered_json joint_advice_json(const std::vector<CommitReport> &commits) {
  ordered_json all = ordered_json::array();
  for (const CommitReport &commit : commits) {
    if (!has_advice(commit.advice)) continue;
    all.push_back({{"commit", commit.name}, {"rollback", commit.is_rollback}, {"advice", advice_json(commit.advice)}});
  }
  return all;
}

ordered_json notification_json(std::string_view level, const std::string &name, const std::string &text) {
  return {{"level", level}, {"message", message_json(name + ": " + text)}};
}

ordered_json invocation_json(const std::vector<CommitReport> &commits) {
  bool all_decided = true;
  ordered_json notifications = ordered_json::array();
  for (const CommitReport &commit : commits) {
    all_decided = all_decided && commit.decision;
    for (const UnreadableName &name : commit.unreadable) {
      notifications.push_back(notification_json("warning", commit.name, to_text(name)));
    }
    const std::string search_end = search_end_text(commit.search);
    if (!search_end.empty()) notifications.push_back(notification_json("warning", commit.name, search_end));
  }
  ordered_json json{{"executionSuccessful", all_decided}};
  if (!notifications.empty()) json["toolExecutionNotifications"] = std::move(notifications);
  return json;
}

}  // namespace

void write_sarif(std::ostream &out, const std::vector<CommitReport> &commits) {
  const ResultWriter result_json;
  ordered_json results = ordered_json::array();
  for (const CommitReport &commit : commits) {
    if (!commit.decision) results.push_back(undecided_json(commit));
    if (!commit.refusal.empty()) results.push_back(refusal_json(commit));
    for (const Finding &finding : commit.findings) results.push_back(result_json(commit, finding));
  }
  ordered_json run;
  run["tool"] = {{"driver", {{"name", "vpnval"}, {"semanticVersion", VPNVAL_VERSION}, {"rules", sarif_rules()}}}};
  run["invocations"] = ordered_json::array({invocation_json(commits)});
  run["columnKind"] = "unicodeCodePoints";
  run["results"] = std::move(results);
  ordered_json advice = joint_advice_json(commits);
  if (!advice.empty()) run["properties"] = {{"joint-advice", std::move(advice)}};
  const ordered_json log{{"version", "2.1.0"}, {"runs", ordered_json::array({std::move(run)})}};
  out << json_text(log, 2) << '\n';
}

}  // namespace report
