#include "cli/commands/search.h"

#include <fmt/format.h>

#include <algorithm>

#include "cli/command_line/budget.h"
#include "cli/terminal/progress.h"
#include "diagnosis/diagnose.h"
#include "process/interrupts.h"
#include "report/findings.h"
#include "report/profile_faults.h"

namespace cli {
namespace {

/// What the device would have said: `--all` asks the library further than a device does.
host::Verdict device_verdict(host::Verdict verdict) {
  const auto rejection =
      std::find_if(verdict.points.begin(), verdict.points.end(),
                   [](const host::PointVerdict &point) { return point.answer == host::Answer::rejected; });
  if (rejection != verdict.points.end()) verdict.points.erase(rejection + 1, verdict.points.end());
  return verdict;
}

}  // namespace

report::SearchEnd end_of(diagnosis::SearchEnd end) {
  switch (end) {
    case diagnosis::SearchEnd::complete:
      return report::SearchEnd::complete;
    case diagnosis::SearchEnd::calls:
      return report::SearchEnd::call_budget;
    case diagnosis::SearchEnd::time:
      return report::SearchEnd::time_budget;
    case diagnosis::SearchEnd::interrupted:
      return report::SearchEnd::interrupted;
    case diagnosis::SearchEnd::contract_violation:
      return report::SearchEnd::contract_violation;
  }
  return report::SearchEnd::contract_violation;
}

diagnosis::Diagnosis find_faults(const diagnosis::Options &options, const Environment &environment,
                                 const CommitInput &input, const host::Plugin &plugin, host::HostSession &session,
                                 const host::Verdict &verdict) {
  diagnosis::Diagnosis diagnosis;
  if (verdict.decision == host::Decision::accepted) return diagnosis;
  diagnosis.end = diagnosis::SearchEnd::calls;
  diagnosis.has_all_repairs = false;
  if (is_nothing(options.budget)) return diagnosis;

  const process::StopRequest stop;
  Progress progress(environment.err, environment.err_is_terminal, environment.clock);
  diagnosis::Options told = options;
  told.progress = [&progress](std::uint64_t calls, std::size_t faults) {
    progress.update([=] { return fmt::format("searching: {} calls of the library, faults found: {}", calls, faults); });
  };
  told.is_interrupted = [&stop] { return stop.has_come(); };
  return diagnosis::diagnose(plugin, session, input.transaction(), verdict, told);
}

void search(const CheckArguments &arguments, const Environment &environment, const CommitInput &input,
            const host::Plugin &plugin, host::HostSession &session, report::CheckReport &report) {
  // Behind a fault that is suppressed another may hide that is not.
  const bool all_faults = arguments.all_faults || !arguments.suppressions.empty();
  const diagnosis::Budget &budget = arguments.budget;
  report.commit.search.all_faults = all_faults;
  report.commit.search.budget_calls = budget.calls;
  report.commit.search.budget_seconds = std::chrono::duration<double>(budget.time).count();
  if (report.verdict.decision == host::Decision::accepted) return;

  const host::Verdict verdict = device_verdict(report.verdict);
  const diagnosis::Diagnosis diagnosis =
      find_faults({.all_findings = all_faults, .budget = budget}, environment, input, plugin, session, verdict);
  report.commit.search.calls = diagnosis.calls;
  report.commit.search.end = end_of(diagnosis.end);
  report.commit.search.has_all_repairs = diagnosis.has_all_repairs;
  report.commit.search.unproven_rules = diagnosis.unproven_rules;
  report.commit.search.contract_violation = diagnosis.contract_violation;
  report::add_findings(report.commit, diagnosis, verdict, input.schema(), input.files(), input.sources());
  report::mark_unknown_interfaces(report.commit.findings, input.profile());
}

}  // namespace cli
