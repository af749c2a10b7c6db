#include "cli/commands/check_command.h"

#include <fmt/format.h>

#include <string>
#include <utility>

#include "cli/commands/output_format.h"
#include "cli/commands/rollback.h"
#include "cli/commands/search.h"
#include "cli/input/commit_input.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/colour.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "report/check_report.h"
#include "report/escape/printable.h"
#include "report/suppressions.h"
#include "report/text/findings_text.h"
#include "report/text/rollback_text.h"
#include "report/text/verdict_text.h"

namespace cli {
namespace {

/// A warning that is not suppressed, or may not be: behind those that a search left unseen.
bool has_open_warning(const report::CheckReport &report) {
  return report::count_open(report.commit.findings, true) != 0 || !report::is_proven_complete(report.commit.search);
}

ExitStatus status_of(const report::CheckReport &report, bool fail_on_warn) {
  if (report.verdict.decision == host::Decision::accepted) return ExitStatus::accepted;
  if (report.verdict.decision == host::Decision::rejected) return ExitStatus::rejected;
  return fail_on_warn && has_open_warning(report) ? ExitStatus::accepted_with_warnings : ExitStatus::accepted;
}

ExitStatus worse(ExitStatus a, ExitStatus b) { return severity(a) < severity(b) ? b : a; }

/// Why the commit is not to be made whatever the library says, and the status for it.
struct Refusal {
  ExitStatus status = ExitStatus::accepted;
  std::string text{};
};

Refusal refusal_of(const CheckArguments &arguments, const report::ChangeSummary &summary) {
  if (arguments.fail_on_no_change && summary.is_nothing) return {ExitStatus::nothing_to_commit, "nothing to commit"};
  if (!arguments.max_removed || summary.removed() <= *arguments.max_removed) return {};
  return {ExitStatus::removes_too_much,
          fmt::format("{} VPNs, attachments, neighbours and members are removed; --max-removed allows {}",
                      summary.removed(), *arguments.max_removed)};
}

std::string name_of(const InputArguments &input) {
  if (!input.directory.empty()) return input.directory;
  return input.edits.empty() ? input.candidate : input.edits.back();
}

}  // namespace

ExitStatus check(const CheckArguments &arguments, const Environment &environment) {
  report::Suppressions suppressions;
  if (!arguments.suppressions.empty()) suppressions = report::Suppressions::read(arguments.suppressions);
  const CommitInput input(find_input_files(arguments.input), read_options(arguments.input));
  host::HostSession session(input.profile());
  const host::Plugin plugin(find_plugin_file(arguments.plugin, environment));

  report::CheckReport report;
  report.commit.name = name_of(arguments.input);
  report.inputs = input.files();
  report.plugin_file = plugin.file().string();
  report.build_id = plugin.build_id();
  report.changes = report::list_changes(input.transaction().changes, arguments.derived);
  report.summary = report::summarize_changes(input.transaction().changes);
  Refusal refusal = refusal_of(arguments, report.summary);
  report.commit.refusal = std::move(refusal.text);
  report.with_trace = arguments.trace;
  report.commit.passed_over = report::count_passed_over(input.sources());
  if (arguments.input.list_foreign) report.foreign = input.sources();

  const report::TextStyle style(wants_colour(arguments, environment));
  std::ostream &human = arguments.format == Format::text ? environment.out : environment.err;
  report::write_summary_of_change(human, report, style);
  tell_foreign_nodes(human, arguments.input, input.sources());
  report::write_changes(human, report.changes, style);
  // A library that meets a broken data model stops the process: what was found out by then must be out.
  human.flush();
  report.verdict = host::validate_commit(plugin, session, input.transaction(), {.all_points = arguments.all_points});
  report.commit.decision = report.verdict.decision;
  report.commit.unreadable = report::unreadable_names(report.verdict.unreadable);
  report::write_verdict(human, report, style);
  human.flush();

  search(arguments, environment, input, plugin, session, report);
  suppressions.apply(report.commit.findings);
  report::write_findings(human, report.commit, style);
  ExitStatus status = worse(status_of(report, arguments.fail_on_warn), refusal.status);
  if (arguments.rollback) {
    human.flush();
    report::CheckReport back = decide_rollback(arguments, environment, input, report.commit.name, plugin, session);
    suppressions.apply(back.commit.findings);
    report::write_rollback_verdict(human, back.verdict, style);
    report::write_findings(human, back.commit, style);
    status = worse(status, status_of(back, arguments.fail_on_warn));
    report.rollback = std::move(back.verdict);
    report.commit.rollback.push_back(std::move(back.commit));
  }
  report.commit.unused_suppressions = suppressions.unused();
  for (const std::string &line : report.commit.unused_suppressions) {
    environment.err << "vpnval: unused suppression: " << report::printable(line) << '\n';
  }
  write_document(environment.out, arguments.format, report);
  return status;
}

}  // namespace cli
