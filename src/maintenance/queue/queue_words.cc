#include <fmt/format.h>

#include <algorithm>

#include "maintenance/queue/queue_report.h"
#include "report/passed_over.h"

namespace queue {
namespace {

std::string_view ended_by(const QueueReport &report) {
  switch (report.end) {
    case report::SearchEnd::complete:
      return "it would have to look at more sets of changes than it does";
    case report::SearchEnd::call_budget:
      return "its calls of the library are used up (--budget)";
    case report::SearchEnd::time_budget:
      return "its time is used up (--budget)";
    case report::SearchEnd::interrupted:
      return "it was interrupted";
    case report::SearchEnd::contract_violation:
      return "the library broke its contract";
  }
  return "";
}

}  // namespace

const report::Finding *rejection_of(const StepReport &step) {
  const auto found = std::find_if(step.findings.begin(), step.findings.end(),
                                  [](const report::Finding &finding) { return !finding.is_warning; });
  return found == step.findings.end() ? nullptr : &*found;
}

std::string outcome_text(const StepReport &step) {
  switch (step.outcome) {
    case StepOutcome::accepted:
      return step.findings.empty() ? "accepted" : "accepted with warnings";
    case StepOutcome::rejected:
      return "rejected";
    case StepOutcome::does_not_fit:
      return "does not fit";
    case StepOutcome::not_asked:
      return "not asked";
  }
  return "?";
}

std::string reason_text(const StepReport &step) {
  const report::Finding *rejection = rejection_of(step);
  if (rejection == nullptr) return step.misfit;
  return rejection->rule.empty() ? rejection->message : fmt::format("[{}] {}", rejection->rule, rejection->message);
}

std::string sum_text(const QueueReport &report) {
  const std::size_t all = report.names.size();
  if (report.proof == Proof::all_go) {
    return all == 1 ? "the change goes through" : fmt::format("all {} changes go through in this order", all);
  }
  if (report.proof == Proof::most_go && report.sets_asked == 0) return "no change goes through, not even alone";
  const std::string some =
      fmt::format("{} of {} go through in this order", report.order.size(), report::count_text(all, "change"));
  if (report.proof == Proof::most_go) {
    return fmt::format("{}, and in no order more: all {} that can be reached were looked at", some,
                       report::count_text(report.sets_asked, "set"));
  }
  return fmt::format("{}; more may in another one, for the search ended before: {}", some, ended_by(report));
}

}  // namespace queue
