#include "cli/commands/plan_command.h"

#include <fmt/format.h>

#include <chrono>
#include <stdexcept>
#include <vector>

#include "cli/commands/search.h"
#include "cli/commands/step_folders.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/output_folder.h"
#include "cli/terminal/progress.h"
#include "cli/terminal/wrapped_stream.h"
#include "diagnosis/plan.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "process/interrupts.h"
#include "report/change_list.h"
#include "report/json/plan_json.h"
#include "report/text/plan_text.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

/// SIGINT and SIGTERM end the search, which has found no steps then.
diagnosis::Plan search_steps(const PlanArguments &arguments, const Environment &environment, const CommitInput &input,
                             const host::Plugin &plugin, host::HostSession &session) {
  const process::StopRequest stop;
  Progress progress(environment.err, environment.err_is_terminal, environment.clock);
  diagnosis::Options options;
  options.budget = arguments.budget;
  options.now = environment.clock;
  options.progress = [&progress](std::uint64_t calls, std::size_t) {
    progress.update([=] { return fmt::format("looking for steps: {} calls of the library", calls); });
  };
  options.is_interrupted = [&stop] { return stop.has_come(); };
  return diagnosis::find_plan(plugin, session, input.transaction(), options);
}

/// Throws where a step as its files have it is not accepted: no steps may stand that were not asked about.
void confirm(const fs::path &folder, const CommitInput &step, const host::Plugin &plugin, host::HostSession &session) {
  const host::Verdict verdict = host::validate_commit(plugin, session, step.transaction());
  if (verdict.decision == host::Decision::rejected) {
    throw std::logic_error(fmt::format("step {}: is rejected when it is read back", folder.filename().string()));
  }
}

/// Writes the folders, asks the library about what stands in them and puts them where they were asked for.
std::vector<report::PlanStep> write_steps(OutputFolder &output, const CommitInput &input,
                                          const std::vector<element::Tree> &stages, const host::Plugin &plugin,
                                          host::HostSession &session) {
  std::vector<report::PlanStep> steps;
  for (const fs::path &folder : write_step_folders(output.part(), input, stages)) {
    const CommitInput step(find_input_files({folder.string(), "", "", ""}));
    confirm(folder, step, plugin, session);
    const fs::path name = folder.filename();
    steps.push_back(
        {name.string(), (output.folder() / name).string(), report::list_changes(step.transaction().changes, false)});
  }
  output.publish();
  return steps;
}

report::PlanReport report_of(const diagnosis::Plan &found, const PlanArguments &arguments, const CommitInput &input,
                             const host::Plugin &plugin) {
  report::PlanReport report;
  report.inputs = input.files();
  report.passed_over = report::count_passed_over(input.sources());
  if (arguments.input.list_foreign) report.foreign = input.sources();
  report.plugin_file = plugin.file().string();
  report.build_id = plugin.build_id();
  report.own_fault = found.own_fault;
  report.parts_tried = found.parts_tried;
  report.calls = found.calls;
  report.budget_calls = arguments.budget.calls;
  report.budget_seconds = std::chrono::duration<double>(arguments.budget.time).count();
  report.end = end_of(found.end);
  report.contract_violation = found.contract_violation;
  return report;
}

}  // namespace

ExitStatus plan(const PlanArguments &arguments, const Environment &environment) {
  // Found out before a search that may take a minute.
  OutputFolder output(arguments.output);
  const CommitInput input(find_input_files(arguments.input), read_options(arguments.input));
  tell_foreign_nodes(environment.err, arguments.input, input.sources());
  host::HostSession session(input.profile());
  const host::Plugin plugin(find_plugin_file(arguments.plugin, environment));
  const diagnosis::Plan found = search_steps(arguments, environment, input, plugin, session);
  report::PlanReport report = report_of(found, arguments, input, plugin);
  if (!found.stages.empty()) report.steps = write_steps(output, input, found.stages, plugin, session);
  const auto write = arguments.format == TableFormat::json ? report::write_plan_json : report::write_plan_text;
  WrappedStream out(environment.out, arguments.format == TableFormat::text ? environment.columns : 0);
  write(out, report);
  return report.steps.empty() ? ExitStatus::rejected : ExitStatus::accepted;
}

}  // namespace cli
