#include "cli/commands/plan_command.h"

#include <fmt/format.h>

#include <sstream>
#include <stdexcept>

#include "cli/commands/step_folders.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/output_folder.h"
#include "cli/terminal/progress.h"
#include "diagnosis/plan.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "report/change_list.h"
#include "report/escape/printable.h"
#include "report/text/verdict_text.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

diagnosis::Plan search(const PlanArguments &arguments, const Environment &environment, const CommitInput &input,
                       const host::Plugin &plugin, host::HostSession &session) {
  Progress progress(environment.err, environment.err_is_terminal, environment.clock);
  diagnosis::Options options;
  options.budget = arguments.budget;
  options.now = environment.clock;
  options.progress = [&progress](std::uint64_t calls, std::size_t) {
    progress.update([=] { return fmt::format("looking for steps: {} calls of the library", calls); });
  };
  return diagnosis::find_plan(plugin, session, input.transaction(), options);
}

std::string why_none(const diagnosis::Plan &plan) {
  if (!plan.contract_violation.empty()) return plan.contract_violation;
  if (plan.own_fault) {
    return fmt::format("order is not all that is wrong: the candidate is rejected on an empty element, too: {}",
                       plan.own_fault->text);
  }
  if (plan.end != diagnosis::SearchEnd::complete) {
    return fmt::format("the budget is used up after {} calls of the library", plan.calls);
  }
  if (plan.parts_tried != 0) {
    return fmt::format("every split of the {} parts of the change that are involved was asked about, none is accepted",
                       plan.parts_tried);
  }
  return "no order of removals, changes and additions is accepted; too many parts are involved to try every split";
}

/// Throws where a step as its files have it is not accepted: no steps may stand that were not asked about.
void confirm(const fs::path &folder, const CommitInput &step, const host::Plugin &plugin, host::HostSession &session) {
  const host::Verdict verdict = host::validate_commit(plugin, session, step.transaction());
  if (verdict.decision == host::Decision::rejected) {
    throw std::logic_error(fmt::format("step {}: is rejected when it is read back", folder.filename().string()));
  }
}

void list_step(std::ostream &out, const fs::path &folder, const CommitInput &step) {
  out << fmt::format("step {}: {}\n", folder.filename().string(), report::printable(folder.string()));
  report::write_changes(out, report::list_changes(step.transaction().changes, false), report::TextStyle(false));
}

void tell_none(std::ostream &out, const diagnosis::Plan &plan) {
  out << fmt::format("no steps found: {}\n", report::printable(why_none(plan)));
  out << "what is wrong, and what to take back: vpnval check --all-faults\n";
}

}  // namespace

ExitStatus plan(const PlanArguments &arguments, const Environment &environment) {
  // Found out before a search that may take a minute.
  OutputFolder output(arguments.output);
  const CommitInput input(find_input_files(arguments.input), read_options(arguments.input));
  tell_foreign_nodes(environment.err, arguments.input, input.files(), input.sources());
  host::HostSession session(input.profile());
  const host::Plugin plugin(find_plugin_file(arguments.plugin, environment));
  const diagnosis::Plan found = search(arguments, environment, input, plugin, session);
  if (found.stages.empty()) {
    tell_none(environment.out, found);
    return ExitStatus::rejected;
  }

  std::ostringstream steps;
  for (const fs::path &folder : write_step_folders(output.part(), input, found.stages)) {
    const CommitInput step(find_input_files({folder.string(), "", "", ""}));
    confirm(folder, step, plugin, session);
    list_step(steps, output.folder() / folder.filename(), step);
  }
  output.publish();
  const std::size_t count = found.stages.size();
  environment.out << (count == 1 ? "1 step: the commit is accepted as it is\n\n"
                                 : fmt::format("{} steps, each accepted on what the one before leaves\n\n", count))
                  << steps.str();
  return ExitStatus::accepted;
}

}  // namespace cli
