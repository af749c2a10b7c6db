#include <nlohmann/json.hpp>
#include <string_view>

#include "maintenance/queue/queue_report.h"
#include "report/json/array.h"
#include "report/json/finding_json.h"
#include "report/json/json_text.h"

namespace queue {
namespace {

using nlohmann::ordered_json;
using report::array;

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
constexpr int queue_schema_version = 1;

std::string_view outcome_name(StepOutcome outcome) {
  switch (outcome) {
    case StepOutcome::accepted:
      return "accepted";
    case StepOutcome::rejected:
      return "rejected";
    case StepOutcome::does_not_fit:
      return "does-not-fit";
    case StepOutcome::not_asked:
      return "not-asked";
  }
  return "?";
}

std::string_view kind_name(PairKind kind) {
  switch (kind) {
    case PairKind::exclusive:
      return "exclusive";
    case PairKind::one_order:
      return "one-order";
    case PairKind::needs:
      return "needs";
    case PairKind::order_matters:
      return "order-matters";
  }
  return "?";
}

std::string_view proof_name(Proof proof) {
  switch (proof) {
    case Proof::all_go:
      return "all";
    case Proof::most_go:
      return "most";
    case Proof::none:
      return "none";
  }
  return "?";
}

ordered_json party_json(const report::PartyReport &party) {
  ordered_json json{{"path", party.node.path}, {"status", report::status_name(party.node.status)}};
  if (const report::FilePlace *place = report::place_of(party.node)) {
    json["file"] = place->file;
    if (place->line != 0) json["line"] = place->line;
  }
  return json;
}

ordered_json finding_json(const report::Finding &finding) {
  ordered_json json{{"severity", finding.is_warning ? "warning" : "rejection"}};
  if (!finding.rule.empty()) json["rule"] = finding.rule;
  json["point"] = finding.point;
  json["path"] = finding.path;
  json["message"] = finding.message;
  json["parties"] = array(finding.parties, party_json);
  return json;
}

ordered_json step_json(const StepReport &step) {
  ordered_json json{{"outcome", outcome_name(step.outcome)}};
  if (!step.findings.empty()) json["findings"] = array(step.findings, finding_json);
  if (!step.misfit.empty()) json["misfit"] = step.misfit;
  return json;
}

ordered_json named_step(const QueueReport &report, std::size_t change, const StepReport &step) {
  ordered_json json{{"change", report.names[change]}};
  json.update(step_json(step));
  return json;
}

ordered_json pair_json(const QueueReport &report, const PairReport &pair) {
  ordered_json json{{"kind", kind_name(pair.kind)},
                    {"first", report.names[pair.first]},
                    {"second", report.names[pair.second]},
                    {"second-on-first", step_json(pair.second_on_first)}};
  if (pair.kind != PairKind::needs) json["first-on-second"] = step_json(pair.first_on_second);
  if (!pair.differs.empty()) json["differs-at"] = pair.differs;
  return json;
}

ordered_json steps_json(const QueueReport &report, const std::vector<std::size_t> &changes,
                        const std::vector<StepReport> &steps) {
  ordered_json json = ordered_json::array();
  for (std::size_t i = 0; i < changes.size(); ++i) json.push_back(named_step(report, changes[i], steps[i]));
  return json;
}

ordered_json search_json(const QueueReport &report) {
  ordered_json json{{"proof", proof_name(report.proof)},
                    {"calls", report.calls},
                    {"budget", {{"calls", report.budget_calls}, {"seconds", report.budget_seconds}}},
                    {"pairs-asked", report.pairs_asked},
                    {"pairs-possible", report.pairs_possible}};
  if (report.proof == Proof::most_go) json["sets-asked"] = report.sets_asked;
  if (report.end != report::SearchEnd::complete) json["ended-by"] = report::end_name(report.end);
  return json;
}

}  // namespace

void write_json(std::ostream &out, const QueueReport &report) {
  ordered_json json;
  json["schema-version"] = queue_schema_version;
  json["program"] = {{"name", "vpnval"}, {"version", VPNVAL_VERSION}};
  json["library"] = {{"file", report.plugin_file}, {"build-id", report.build_id}};
  json["inputs"] = {{"element", report.element}, {"running", report.running}};
  json["alone"] = ordered_json::array();
  for (std::size_t i = 0; i < report.names.size(); ++i) {
    json["alone"].push_back(named_step(report, i, report.alone[i]));
  }
  json["pairs"] = array(report.pairs, [&report](const PairReport &pair) { return pair_json(report, pair); });
  json["order"] = steps_json(report, report.order, report.steps);
  json["left-out"] = steps_json(report, report.left_out, report.left_out_steps);
  json["search"] = search_json(report);
  out << report::json_text(json, 2) << '\n';
}

}  // namespace queue
