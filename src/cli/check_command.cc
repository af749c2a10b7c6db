#include "cli/check_command.h"

#include "cli/commit_input.h"
#include "cli/json_output.h"
#include "cli/plugin_file.h"
#include "cli/report.h"
#include "cli/text_output.h"
#include "host/plugin.h"
#include "host/seam.h"

namespace cli {
namespace {

ExitStatus status_of(host::Decision decision, bool fail_on_warn) {
  if (decision == host::Decision::rejected) return ExitStatus::rejected;
  if (decision == host::Decision::accepted_with_warnings && fail_on_warn) return ExitStatus::accepted_with_warnings;
  return ExitStatus::accepted;
}

}  // namespace

ExitStatus check(const CheckArguments &arguments, const Environment &environment) {
  const CommitInput input(find_input_files(arguments.input));
  host::Seam seam(input.profile());
  const host::Plugin plugin(find_plugin_file(arguments.plugin, environment));

  Report report;
  report.inputs = input.files();
  report.plugin_file = plugin.file().string();
  report.build_id = plugin.build_id();
  report.changes = list_changes(input.transaction().changes, arguments.derived);
  report.with_trace = arguments.trace;

  std::ostream &human = arguments.format == Format::text ? environment.out : environment.err;
  write_changes(human, report.changes);
  // A library that meets a broken data model stops the process: what was found out by then must be out.
  human.flush();
  report.verdict = host::validate_commit(plugin, seam, input.transaction(), {.all_points = arguments.all_points});
  write_verdict(human, report);
  if (arguments.format == Format::json) write_json(environment.out, report);
  return status_of(report.verdict.decision, arguments.fail_on_warn);
}

}  // namespace cli
