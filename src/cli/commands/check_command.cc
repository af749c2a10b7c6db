#include "cli/commands/check_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <ostream>
#include <string>
#include <utility>

#include "cli/commands/outputs.h"
#include "cli/commands/rollback.h"
#include "cli/commands/search.h"
#include "cli/commands/undecided.h"
#include "cli/input/commit_input.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/plugin_file.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "report/check_report.h"
#include "report/escape/shell_word.h"
#include "report/in_force.h"
#include "report/json/verdict_json.h"
#include "report/profile_faults.h"
#include "report/summary.h"
#include "report/suppressions.h"
#include "report/text/findings_text.h"
#include "report/text/rollback_text.h"
#include "report/text/verdict_text.h"

namespace cli {
namespace {

ExitStatus status_of(const report::CommitReport &commit, bool fail_on_warn) {
  if (*commit.decision == host::Decision::rejected) return ExitStatus::rejected;
  return fail_on_warn && report::has_open_warning(commit) ? ExitStatus::accepted_with_warnings : ExitStatus::accepted;
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

/// The arguments that name a commit, for a command line to copy. A folder named as an option is keeps from being one.
std::string as_typed(const InputArguments &input) {
  std::string text;
  const auto add = [&text](const std::string &option, const std::string &file) {
    if (!file.empty()) text += (text.empty() ? "" : " ") + option + report::shell_word(file);
  };
  add("", input.directory.starts_with('-') ? "./" + input.directory : input.directory);
  add("--element ", input.element);
  add("--running ", input.running);
  add("--candidate ", input.candidate);
  for (const std::string &edit : input.edits) add("--edit ", edit);
  return text;
}

/// Whether any output is JSON, which alone takes the document.
bool wants_document(const CheckArguments &arguments) {
  return arguments.format == Format::json ||
         std::any_of(arguments.outputs.begin(), arguments.outputs.end(),
                     [](const OutputArgument &output) { return output.format == Format::json; });
}

/// An audit's configuration is committed to an element on which nothing is in force.
InputFiles input_files(const CheckArguments &arguments) {
  if (!arguments.is_audit) return find_input_files(arguments.input);
  return {arguments.input.element, "", arguments.input.candidate, {}};
}

/// One commit on its way to a verdict, with the text that is written on the way.
class SingleCommit {
 public:
  SingleCommit(const CheckArguments &arguments, const Environment &environment, Outputs &outputs)
      : arguments_(arguments), environment_(environment), outputs_(outputs), suppressions_(environment.today()) {}

  report::CommitResult decide() {
    for (const std::string &file : arguments_.suppressions) suppressions_.read(file);
    const CommitInput input(input_files(arguments_), read_options(arguments_.input));
    host::HostSession session(input.profile());
    const host::Plugin plugin(find_plugin_file(arguments_.plugin, environment_));
    begin(input, plugin);
    ask(input, plugin, session);
    ExitStatus status = worse(status_of(report_.commit, arguments_.fail_on_warn), refusal_status_);
    if (arguments_.rollback) status = worse(status, decide_way_back(input, plugin, session));
    report_.commit.unused_suppressions = suppressions_.unused();
    report_.commit.expired_suppressions = suppressions_.expired();
    return {report_.commit, static_cast<int>(status), wants_document(arguments_) ? report::verdict_json(report_) : ""};
  }

 private:
  void begin(const CommitInput &input, const host::Plugin &plugin) {
    report_.commit.name = name_of(arguments_.input);
    report_.commit.input_arguments = as_typed(arguments_.input);
    report_.commit.is_audit = arguments_.is_audit;
    report_.inputs = input.files();
    report_.plugin_file = plugin.file().string();
    report_.build_id = plugin.build_id();
    // Of an audit, all of the configuration would be listed.
    if (!arguments_.is_audit) {
      report_.changes = report::list_changes(input.transaction().changes, arguments_.derived);
    }
    report_.summary = report::summarize_changes(input.transaction().changes);
    Refusal refusal = refusal_of(arguments_, report_.summary);
    report_.commit.refusal = std::move(refusal.text);
    refusal_status_ = refusal.status;
    report_.with_trace = arguments_.trace;
    report_.commit.passed_over = report::count_passed_over(input.sources());
    if (arguments_.input.list_foreign) report_.foreign = input.sources();
    // A library that meets a broken data model stops the process: what was found out by then must be out.
    outputs_.write_text([&](std::ostream &out, const report::TextStyle &style) {
      report::write_summary_of_change(out, report_, style);
      tell_foreign_nodes(out, arguments_.input, input.sources());
      if (!arguments_.is_audit) report::write_changes(out, report_.changes, style);
    });
  }

  void ask(const CommitInput &input, const host::Plugin &plugin, host::HostSession &session) {
    report_.verdict =
        host::validate_commit(plugin, session, input.transaction(), {.all_points = arguments_.all_points});
    report_.commit.decision = report_.verdict.decision;
    report_.commit.element = report_.inputs.element.string();
    report_.commit.missing_limits = report::missing_limits(input.profile(), report_.verdict);
    report_.commit.unreadable = report::unreadable_names(report_.verdict.unreadable);
    outputs_.write_text(
        [this](std::ostream &out, const report::TextStyle &style) { report::write_verdict(out, report_, style); });
    search(arguments_, environment_, input, plugin, session, report_);
    if (arguments_.is_audit) report::tell_as_in_force(report_.commit);
    suppressions_.apply(report_.commit.findings);
    outputs_.write_text([this](std::ostream &out, const report::TextStyle &style) {
      report::write_findings(out, report_.commit, style);
    });
  }

  ExitStatus decide_way_back(const CommitInput &input, const host::Plugin &plugin, host::HostSession &session) {
    report::CheckReport back = decide_rollback(arguments_, environment_, input, report_.commit.name, plugin, session);
    suppressions_.apply(back.commit.findings);
    outputs_.write_text([&back](std::ostream &out, const report::TextStyle &style) {
      report::write_rollback_verdict(out, back.verdict, style);
      report::write_findings(out, back.commit, style);
    });
    const ExitStatus status = status_of(back.commit, arguments_.fail_on_warn);
    report_.rollback = std::move(back.verdict);
    report_.commit.rollback.push_back(std::move(back.commit));
    return status;
  }

  const CheckArguments &arguments_;
  const Environment &environment_;
  Outputs &outputs_;
  report::Suppressions suppressions_;
  report::CheckReport report_;
  ExitStatus refusal_status_ = ExitStatus::accepted;
};

report::CommitResult decide(const CheckArguments &arguments, const Environment &environment, Outputs &outputs) {
  try {
    const auto start = environment.clock();
    report::CommitResult result = SingleCommit(arguments, environment, outputs).decide();
    result.commit.seconds = std::chrono::duration<double>(environment.clock() - start).count();
    tell_suppressions(environment.err, "unused", result.commit.unused_suppressions);
    tell_suppressions(environment.err, "expired", result.commit.expired_suppressions);
    outputs.write(result);
    return result;
  } catch (...) {
    return tell_undecided(arguments, environment, name_of(arguments.input), outputs);
  }
}

}  // namespace

ExitStatus check(const CheckArguments &arguments, const Environment &environment) {
  Outputs outputs(arguments, environment, TextForm::in_steps);
  const report::CommitResult result = decide(arguments, environment, outputs);
  report::SeriesSummary summary;
  summary.add(result.commit);
  const auto status = static_cast<ExitStatus>(result.exit_status);
  outputs.finish(summary, status);
  return status;
}

}  // namespace cli
