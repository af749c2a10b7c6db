#include "report/json/plan_json.h"

#include <nlohmann/json.hpp>
#include <string_view>

#include "report/json/array.h"
#include "report/json/change_json.h"
#include "report/json/finding_json.h"
#include "report/json/json_text.h"
#include "report/json/passed_over_json.h"
#include "rules/rule.h"

namespace report {
namespace {

using nlohmann::ordered_json;

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
constexpr int plan_schema_version = 1;

std::string_view reason_name(NoStepsReason reason) {
  switch (reason) {
    case NoStepsReason::contract_violation:
      return "contract-violation";
    case NoStepsReason::own_fault:
      return "own-fault";
    case NoStepsReason::interrupted:
      return "interrupted";
    case NoStepsReason::budget:
      return "budget";
    case NoStepsReason::no_split:
      return "no-split";
    case NoStepsReason::too_many_parts:
      return "too-many-parts";
  }
  return "?";
}

ordered_json plan_step_json(const PlanStep &step) {
  return {{"folder", step.folder}, {"changes", array(step.changes, change_json)}};
}

ordered_json fault_json(const host::PointVerdict &fault) {
  ordered_json json;
  if (const rules::Rule *rule = rules::rule_of_message(fault.point, fault.text)) json["rule"] = rule->id;
  json["point"] = fault.point;
  json["path"] = fault.path;
  json["message"] = fault.text;
  return json;
}

ordered_json no_steps_json(const PlanReport &report) {
  const NoStepsReason reason = no_steps_reason(report);
  ordered_json json{{"reason", reason_name(reason)}, {"text", no_steps_text(report)}};
  if (reason == NoStepsReason::own_fault) json["fault"] = fault_json(*report.own_fault);
  if (reason == NoStepsReason::no_split) json["parts-tried"] = report.parts_tried;
  return json;
}

ordered_json plan_search_json(const PlanReport &report) {
  ordered_json json{{"calls", report.calls},
                    {"budget", {{"calls", report.budget_calls}, {"seconds", report.budget_seconds}}}};
  if (report.end != SearchEnd::complete) json["ended-by"] = end_name(report.end);
  return json;
}

}  // namespace

void write_plan_json(std::ostream &out, const PlanReport &report) {
  ordered_json json;
  json["schema-version"] = plan_schema_version;
  json["program"] = {{"name", "vpnval"}, {"version", VPNVAL_VERSION}};
  json["library"] = {{"file", report.plugin_file}, {"build-id", report.build_id}};
  json["inputs"] = {{"element", report.inputs.element.string()},
                    {"running", report.inputs.running.string()},
                    {"candidate", report.inputs.candidate.string()}};
  if (!report.passed_over.is_nothing()) {
    json["passed-over"] = passed_over_json(report.passed_over, report.foreign ? &*report.foreign : nullptr);
  }
  json["steps"] = array(report.steps, plan_step_json);
  if (report.steps.empty()) json["no-steps"] = no_steps_json(report);
  json["search"] = plan_search_json(report);
  // A message may end within a character: the library cuts long names at a number of bytes.
  out << json_text(json, 2) << '\n';
}

}  // namespace report
