#include "cli/commands/check_command.h"

#include "cli/commands/search.h"
#include "cli/findings/suppressions.h"
#include "cli/input/commit_input.h"
#include "cli/input/plugin_file.h"
#include "cli/output/colour.h"
#include "cli/output/findings_text.h"
#include "cli/output/github_output.h"
#include "cli/output/json_output.h"
#include "cli/output/junit_output.h"
#include "cli/output/report.h"
#include "cli/output/sarif_output.h"
#include "cli/output/text_output.h"
#include "cli/text/printable.h"
#include "host/run/plugin.h"
#include "host/seam/seam.h"

namespace cli {
namespace {

/// A warning that is not suppressed, or may not be: behind those that a search left unseen.
bool has_open_warning(const Report &report) {
  return count_open(report.findings, true) != 0 || !report.search.ended_by.empty();
}

ExitStatus status_of(const Report &report, bool fail_on_warn) {
  if (report.verdict.decision == host::Decision::accepted) return ExitStatus::accepted;
  if (report.verdict.decision == host::Decision::rejected) return ExitStatus::rejected;
  return fail_on_warn && has_open_warning(report) ? ExitStatus::accepted_with_warnings : ExitStatus::accepted;
}

DecidedCommit decided_commit(const CheckArguments &arguments, const Report &report) {
  DecidedCommit commit;
  commit.name = arguments.input.directory.empty() ? arguments.input.candidate : arguments.input.directory;
  commit.decision = report.verdict.decision;
  commit.findings = report.findings;
  commit.search = report.search;
  commit.unused_suppressions = report.unused_suppressions;
  return commit;
}

void write_document(std::ostream &out, const CheckArguments &arguments, const Report &report) {
  switch (arguments.format) {
    case Format::text:
      return;
    case Format::json:
      return write_json(out, report);
    case Format::sarif:
      return write_sarif(out, {decided_commit(arguments, report)});
    case Format::junit:
      return write_junit(out, {decided_commit(arguments, report)});
    case Format::github:
      return write_github(out, {decided_commit(arguments, report)});
  }
}

}  // namespace

ExitStatus check(const CheckArguments &arguments, const Environment &environment) {
  Suppressions suppressions;
  if (!arguments.suppressions.empty()) suppressions = Suppressions::read(arguments.suppressions);
  const CommitInput input(find_input_files(arguments.input));
  host::Seam seam(input.profile());
  const host::Plugin plugin(find_plugin_file(arguments.plugin, environment));

  Report report;
  report.inputs = input.files();
  report.plugin_file = plugin.file().string();
  report.build_id = plugin.build_id();
  report.changes = list_changes(input.transaction().changes, arguments.derived);
  report.with_trace = arguments.trace;

  const Paint paint(wants_colour(arguments, environment));
  std::ostream &human = arguments.format == Format::text ? environment.out : environment.err;
  write_changes(human, report.changes, paint);
  // A library that meets a broken data model stops the process: what was found out by then must be out.
  human.flush();
  report.verdict = host::validate_commit(plugin, seam, input.transaction(), {.all_points = arguments.all_points});
  write_verdict(human, report, paint);
  human.flush();

  search(arguments, environment, input, plugin, seam, report);
  suppressions.apply(report.findings);
  report.unused_suppressions = suppressions.unused();
  write_findings(human, report.findings, report.search, paint);
  for (const std::string &line : report.unused_suppressions) {
    environment.err << "vpnval: suppresses nothing: " << printable(line) << '\n';
  }
  write_document(environment.out, arguments, report);
  return status_of(report, arguments.fail_on_warn);
}

}  // namespace cli
