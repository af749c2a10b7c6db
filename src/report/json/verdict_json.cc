#include "report/json/verdict_json.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "report/decision_text.h"
#include "report/json/advice_json.h"
#include "report/json/array.h"
#include "report/json/change_json.h"
#include "report/json/change_summary_json.h"
#include "report/json/finding_json.h"
#include "report/json/json_text.h"
#include "report/json/node_json.h"
#include "report/json/passed_over_json.h"
#include "report/json/unreadable_json.h"
#include "report/rollback.h"

namespace report {
namespace {

using nlohmann::ordered_json;

ordered_json point_json(const host::PointVerdict &point) {
  ordered_json json{{"name", point.point}, {"path", point.path}, {"verdict", answer_text(point)}};
  if (!point.text.empty()) json["message"] = point.text;
  return json;
}

ordered_json limit_json(const MissingLimit &limit) {
  return {{"limit", limit.field}, {"rule", limit.rule}, {"allowed", limit.allowed}};
}

MissingLimit read_limit(const ordered_json &json) {
  return {json.at("limit").get<std::string>(), json.at("rule").get<std::string>(), json.at("allowed").get<int>()};
}

ordered_json total_json(const host::Verdict &verdict) {
  const PointCounts counts = count_points(verdict);
  return {{"fired", verdict.points_fired},
          {"asked", verdict.points.size()},
          {"accepted", counts.accepted},
          {"warnings", counts.warned},
          {"rejected", counts.rejected}};
}

host::Decision read_decision(const std::string &text) {
  for (const host::Decision decision :
       {host::Decision::accepted, host::Decision::accepted_with_warnings, host::Decision::rejected}) {
    if (decision_name(decision) == text) return decision;
  }
  throw UnknownNameError(fmt::format("decision \"{}\" is none that is known", text));
}

/// The way back, as far as it differs from the commit by more than its direction.
ordered_json rollback_json(const CommitReport &rollback, const host::Verdict &verdict) {
  return {{"decision", decision_name(verdict.decision)}, {"total", total_json(verdict)},
          {"points", array(verdict.points, point_json)}, {"findings", findings_json(rollback.findings)},
          {"advice", advice_json(rollback.advice)},      {"search", search_json(rollback.search)}};
}

CommitReport read_rollback(const ordered_json &json, const std::string &name) {
  CommitReport rollback;
  rollback.name = rollback_name(name);
  rollback.is_rollback = true;
  rollback.decision = read_decision(json.at("decision").get<std::string>());
  rollback.findings = read_findings(json.at("findings"));
  rollback.advice = read_advice(json.at("advice"));
  rollback.search = read_search(json.at("search"));
  return rollback;
}

}  // namespace

std::string verdict_json(const CheckReport &report) {
  ordered_json json;
  json["library"] = {{"file", report.plugin_file}, {"build-id", report.build_id}};
  json["inputs"] = {{"element", report.inputs.element.string()},
                    {"running", report.inputs.running.string()},
                    {"candidate", report.inputs.candidate.string()}};
  for (const std::filesystem::path &edit : report.inputs.edits) json["inputs"]["edits"].push_back(edit.string());
  if (!report.commit.passed_over.is_nothing()) {
    json["passed-over"] = passed_over_json(report.commit.passed_over, report.foreign ? &*report.foreign : nullptr);
  }
  if (report.commit.is_audit) json["audit"] = true;
  json["summary"] = change_summary_json(report.summary);
  json["decision"] = decision_name(report.verdict.decision);
  if (!report.commit.refusal.empty()) json["refusal"] = report.commit.refusal;
  json["total"] = total_json(report.verdict);
  json["points"] = array(report.verdict.points, point_json);
  if (!report.commit.missing_limits.empty()) json["missing-limits"] = array(report.commit.missing_limits, limit_json);
  write_unreadable(json, report.commit.unreadable);
  json["changes"] = array(report.changes, change_json);
  json["findings"] = findings_json(report.commit.findings);
  json["advice"] = advice_json(report.commit.advice);
  json["search"] = search_json(report.commit.search);
  json["unused-suppressions"] = report.commit.unused_suppressions;
  if (!report.commit.expired_suppressions.empty()) json["expired-suppressions"] = report.commit.expired_suppressions;
  if (report.rollback) json["rollback"] = rollback_json(report.commit.rollback.front(), *report.rollback);
  if (report.with_trace) json["trace"] = report.verdict.statistics.trace;
  // A message may end within a character: the library cuts long names at a number of bytes.
  return json_text(json);
}

CommitReport read_verdict(const ordered_json &json, const std::string &name) {
  CommitReport commit;
  commit.name = name;
  commit.decision = read_decision(json.at("decision").get<std::string>());
  commit.is_audit = json.value("audit", false);
  commit.refusal = json.value("refusal", "");
  if (json.contains("passed-over")) commit.passed_over = read_passed_over(json.at("passed-over"));
  commit.element = json.at("inputs").at("element").get<std::string>();
  if (json.contains("missing-limits")) {
    commit.missing_limits = items<MissingLimit>(json.at("missing-limits"), read_limit);
  }
  commit.unreadable = read_unreadable(json);
  commit.findings = read_findings(json.at("findings"));
  commit.advice = read_advice(json.at("advice"));
  commit.search = read_search(json.at("search"));
  commit.unused_suppressions = json.at("unused-suppressions").get<std::vector<std::string>>();
  commit.expired_suppressions = json.value("expired-suppressions", std::vector<std::string>());
  if (json.contains("rollback")) commit.rollback.push_back(read_rollback(json["rollback"], name));
  return commit;
}

}  // namespace report
