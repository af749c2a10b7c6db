#include <nlohmann/json.hpp>

#include "maintenance/cost/cost_report.h"
#include "maintenance/cost/library_steps.h"
#include "report/decision_text.h"
#include "report/json/json_text.h"

namespace cost {
namespace {

using nlohmann::ordered_json;

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
constexpr int cost_schema_version = 1;

double seconds(std::chrono::nanoseconds time) { return std::chrono::duration<double>(time).count(); }

ordered_json calls_json(const StepCost &step) {
  ordered_json json = ordered_json::object();
  for (std::size_t i = 0; i < step.calls.size(); ++i) {
    if (step.calls[i] != 0) json[std::string(host::name(static_cast<host::SeamFunction>(i)))] = step.calls[i];
  }
  return json;
}

ordered_json cost_step_json(const StepCost &step, const CostReport &report) {
  ordered_json json{{"function", step.function}, {"rules", ordered_json::array()}, {"calls", step.total()}};
  for (const std::string_view rule : rules_of_function(step.function)) json["rules"].push_back(rule);
  if (report.latencies) json["seconds"] = seconds(time_of(step, *report.latencies));
  json["by-function"] = calls_json(step);
  return json;
}

ordered_json cost_point_json(const PointCost &point, const CostReport &report) {
  ordered_json json{{"point", point.point}, {"calls", point.total()}, {"steps", ordered_json::array()}};
  for (const StepCost &step : point.steps) json["steps"].push_back(cost_step_json(step, report));
  return json;
}

ordered_json commit_json(const CommitCost &commit, const CostReport &report) {
  ordered_json json{{"decision", report::decision_name(commit.decision)},
                    {"calls", commit.total()},
                    {"points", ordered_json::array()}};
  for (const PointCost &point : commit.points) json["points"].push_back(cost_point_json(point, report));
  return json;
}

ordered_json forecast_json(const CostReport &report) {
  ordered_json json{{"latencies", report.latency_source},
                    {"platform-seconds", seconds(time_of(report.commit, *report.latencies))},
                    {"own-seconds", seconds(report.commit.own_time)},
                    {"time-out", report.time_out.count()},
                    {"holds", holds_its_time(report)},
                    {"points", ordered_json::array()}};
  for (const PointCost &point : report.commit.points) {
    ordered_json row{{"point", point.point},
                     {"longest-question", seconds(point.longest)},
                     {"extensions", point.extensions},
                     {"longest-without-extension", seconds(point.longest_wait)}};
    if (!point.overdue_step.empty()) row["overdue-in"] = point.overdue_step;
    json["points"].push_back(std::move(row));
  }
  if (report.waited) json["waited-seconds"] = seconds(*report.waited);
  return json;
}

}  // namespace

void write_json(std::ostream &out, const CostReport &report) {
  ordered_json json;
  json["schema-version"] = cost_schema_version;
  json["program"] = {{"name", "vpnval"}, {"version", VPNVAL_VERSION}};
  json["library"] = {{"file", report.plugin_file}, {"build-id", report.build_id}};
  json["commit"] = commit_json(report.commit, report);
  json["doubled"] = commit_json(report.doubled, report);
  if (report.latencies) json["forecast"] = forecast_json(report);
  out << report::json_text(json, 2) << '\n';
}

}  // namespace cost
