#include "report/text/plan_text.h"

#include <fmt/format.h>

#include "report/escape/printable.h"
#include "report/text/text_style.h"
#include "report/text/verdict_text.h"

namespace report {

void write_plan_text(std::ostream &out, const PlanReport &report) {
  if (report.steps.empty()) {
    out << fmt::format("no steps found: {}\n", printable(no_steps_text(report)));
    out << "what is wrong, and what to take back: vpnval check --all-faults\n";
    return;
  }
  const std::size_t count = report.steps.size();
  out << (count == 1 ? "1 step: the commit is accepted as it is\n\n"
                     : fmt::format("{} steps, each accepted on what the one before leaves\n\n", count));
  for (const PlanStep &step : report.steps) {
    out << fmt::format("step {}: {}\n", step.name, printable(step.folder));
    write_changes(out, step.changes, TextStyle(false));
  }
}

}  // namespace report
