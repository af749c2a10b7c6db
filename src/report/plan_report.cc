#include "report/plan_report.h"

#include <fmt/format.h>

namespace report {

NoStepsReason no_steps_reason(const PlanReport &report) {
  if (!report.contract_violation.empty()) return NoStepsReason::contract_violation;
  if (report.own_fault) return NoStepsReason::own_fault;
  if (report.end == SearchEnd::interrupted) return NoStepsReason::interrupted;
  if (report.end != SearchEnd::complete) return NoStepsReason::budget;
  return report.parts_tried != 0 ? NoStepsReason::no_split : NoStepsReason::too_many_parts;
}

std::string no_steps_text(const PlanReport &report) {
  switch (no_steps_reason(report)) {
    case NoStepsReason::contract_violation:
      return report.contract_violation;
    case NoStepsReason::own_fault:
      return fmt::format("order is not all that is wrong: the candidate is rejected on an empty element, too: {}",
                         report.own_fault->text);
    case NoStepsReason::interrupted:
      return fmt::format("interrupted after {} calls of the library", report.calls);
    case NoStepsReason::budget:
      return fmt::format("the budget is used up after {} calls of the library", report.calls);
    case NoStepsReason::no_split:
      return fmt::format(
          "every split of the {} parts of the change that are involved was asked about, none is accepted",
          report.parts_tried);
    case NoStepsReason::too_many_parts:
      return "no order of removals, changes and additions is accepted; too many parts are involved to try every split";
  }
  return {};
}

}  // namespace report
