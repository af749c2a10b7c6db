#include <nlohmann/json.hpp>

#include "maintenance/cost/library_steps.h"
#include "maintenance/coverage/coverage_report.h"
#include "report/json/json_text.h"

namespace coverage {
namespace {

using nlohmann::ordered_json;

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
constexpr int coverage_schema_version = 1;

ordered_json cell_json(const Cell &cell) {
  if (!cell.rule.empty()) return {{"rule", cell.rule}, {"outcome", cell.outcome}};
  return {{"point", cell.point},       {"step", cell.step}, {"rules", cost::rules_of_function(cell.step)},
          {"function", cell.function}, {"use", cell.use},   {"outcome", cell.outcome}};
}

}  // namespace

void write_json(std::ostream &out, const CoverageReport &report) {
  ordered_json json;
  json["schema-version"] = coverage_schema_version;
  json["program"] = {{"name", "vpnval"}, {"version", VPNVAL_VERSION}};
  json["library"] = {{"file", report.plugin_file}, {"build-id", report.build_id}};
  json["commits"] = report.commits;
  json["filled"] = ordered_json::array();
  for (const auto &[cell, filled] : report.filled) {
    ordered_json row = cell_json(cell);
    row["commits"] = filled.commits;
    row["first"] = filled.first;
    json["filled"].push_back(std::move(row));
  }
  json["empty"] = ordered_json::array();
  for (const Cell &cell : report.empty()) json["empty"].push_back(cell_json(cell));
  json["found"] = ordered_json::array();
  for (const FillingCommit &found : report.found) {
    ordered_json row = cell_json(found.cell);
    row["commit"] = found.name;
    json["found"].push_back(std::move(row));
  }
  json["drawn"] = report.drawn;
  out << report::json_text(json, 2) << '\n';
}

}  // namespace coverage
