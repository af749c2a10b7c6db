#include "maintenance/commands/queue_command.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <memory>

#include "cli/command_line/budget.h"
#include "cli/command_line/choice.h"
#include "cli/command_line/errors.h"
#include "cli/commands/search.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/input_files.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/progress.h"
#include "cli/terminal/wrapped_stream.h"
#include "element/input/input_file.h"
#include "maintenance/queue/explanation.h"
#include "process/interrupts.h"

namespace maintenance {
namespace {

namespace fs = std::filesystem;

enum class QueueFormat { text, json, markdown };

struct QueueArguments {
  cli::InputArguments input;  ///< element, running and how files are to be read
  std::vector<std::string> changes;
  bool candidates = false;  ///< files are whole configurations, not edits
  std::string plugin;
  std::string budget;
  QueueFormat format = QueueFormat::text;
};

queue::QueuedChange read_change(const QueueArguments &arguments, const element::Tree &running,
                                const std::string &name) {
  const element::ReadOptions options = cli::read_options(arguments.input);
  std::error_code unknown;
  if (!fs::is_directory(name, unknown)) {
    return arguments.candidates ? queue::read_candidate_change(running, name, name, options)
                                : queue::read_edit_change(running.schema(), name, name, options);
  }
  const cli::InputFiles files = cli::find_configurations({name, "", "", ""});
  return files.edits.empty() ? queue::read_candidate_change(running, name, files.candidate, options)
                             : queue::read_edit_change(running.schema(), name, files.edits.front(), options);
}

void require_one_standard_input(const QueueArguments &arguments) {
  std::vector<std::string> names = arguments.changes;
  names.insert(names.end(), {arguments.input.element, arguments.input.running});
  if (std::count(names.begin(), names.end(), element::kStandardInput) <= 1) return;
  throw cli::UsageError("- is given more than once; expected it once, for standard input can be read once alone");
}

void tell_passed_over(const cli::Environment &environment, const QueueArguments &arguments,
                      const element::ConfigurationFile &running, const std::vector<queue::QueuedChange> &changes) {
  report::InputSources sources{running.source, {}};
  for (const queue::QueuedChange &change : changes) {
    auto &modules = sources.candidate.passed_over.modules;
    modules.insert(modules.end(), change.passed_over.modules.begin(), change.passed_over.modules.end());
  }
  cli::tell_foreign_nodes(environment.err, arguments.input, sources);
}

/// SIGINT and SIGTERM end the search; what was found by then is told.
queue::QueueReport find_queue(const QueueArguments &arguments, const cli::Environment &environment,
                              const queue::QueueInputs &inputs, const host::Plugin &plugin,
                              host::HostSession &session) {
  const process::StopRequest stop;
  cli::Progress progress(environment.err, environment.err_is_terminal, environment.clock);
  diagnosis::Options options;
  if (!arguments.budget.empty()) options.budget = cli::parse_budget(arguments.budget);
  options.now = environment.clock;
  options.is_interrupted = [&stop] { return stop.has_come(); };
  options.progress = [&progress](std::uint64_t calls, std::size_t) {
    progress.update([=] { return fmt::format("asking about changes: {} calls of the library", calls); });
  };
  queue::StepOracle oracle(plugin, session, inputs.running.tree, inputs.changes, options);
  const queue::Queue found = queue::search_queue(inputs.running.tree, inputs.changes.size(), oracle);
  const diagnosis::SearchEnd end = oracle.end();
  queue::QueueReport report = queue::explained(found, inputs, plugin, session, options, oracle);
  report.end = cli::end_of(end);
  report.calls = oracle.calls();
  report.budget_calls = options.budget.calls;
  report.budget_seconds = std::chrono::duration<double>(options.budget.time).count();
  report.contract_violation = oracle.contract_violation();
  return report;
}

void write(const QueueArguments &arguments, const cli::Environment &environment, const queue::QueueReport &report) {
  const bool is_text = arguments.format == QueueFormat::text;
  cli::WrappedStream out(environment.out, is_text ? environment.columns : 0);
  if (is_text) return queue::write_text(out, report);
  arguments.format == QueueFormat::json ? queue::write_json(out, report) : queue::write_markdown(out, report);
}

cli::ExitStatus run_queue(const QueueArguments &arguments, const cli::Environment &environment) {
  require_one_standard_input(arguments);
  const element::Profile profile = element::read_profile(arguments.input.element);
  const element::Schema schema;
  const element::ConfigurationFile running =
      element::read_configuration_file(schema, arguments.input.running, cli::read_options(arguments.input));
  std::vector<queue::QueuedChange> changes;
  for (const std::string &name : arguments.changes) changes.push_back(read_change(arguments, running.tree, name));
  tell_passed_over(environment, arguments, running, changes);
  host::HostSession session(profile);
  const host::Plugin plugin(cli::find_plugin_file(arguments.plugin, environment));
  const queue::QueueInputs inputs{running, arguments.input.running, arguments.input.element, changes};
  const queue::QueueReport report = find_queue(arguments, environment, inputs, plugin, session);
  write(arguments, environment, report);
  return report.proof == queue::Proof::all_go ? cli::ExitStatus::accepted : cli::ExitStatus::rejected;
}

const std::map<std::string, QueueFormat> queue_formats{
    {"text", QueueFormat::text}, {"json", QueueFormat::json}, {"markdown", QueueFormat::markdown}};

}  // namespace

void add_queue(CLI::App &command, Chosen &chosen) {
  const auto arguments = std::make_shared<QueueArguments>();
  command
      .add_option("CHANGE", arguments->changes,
                  "Edit as for check --edit, or folder with edit.xml, edit.json, candidate.xml or candidate.json")
      ->required()
      ->type_name("");
  command.add_option("--running", arguments->input.running, "Configuration in force (XML or JSON)")
      ->required()
      ->option_text("FILE");
  command.add_option("--element", arguments->input.element, "Element profile (JSON)")->required()->option_text("FILE");
  command.add_flag("--candidates", arguments->candidates, "Files are whole candidates instead of edits");
  command.add_flag("--strict", arguments->input.strict, "Nodes of modules that are not the element's are an error");
  command.add_flag("--list-foreign", arguments->input.list_foreign, "List the modules that are passed over");
  command.add_option("--plugin", arguments->plugin, "Validation library to ask")->type_name("FILE");
  cli::add_choice(command, "--format", queue_formats, arguments->format,
                  "Format of the result; text unless it is given");
  command
      .add_option("--budget", arguments->budget,
                  "Bound of the search: calls of the library, seconds, or both; 20000,60s unless it is given")
      ->type_name("CALLS,TIMEs");
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return run_queue(*arguments, environment); };
  });
}

}  // namespace maintenance
