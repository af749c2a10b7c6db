#include "maintenance/commands/cost_command.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/command_line/choice.h"
#include "cli/command_line/errors.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/wrapped_stream.h"
#include "host/run/build_id.h"
#include "maintenance/commands/commit_source.h"
#include "maintenance/cost/cost_report.h"
#include "maintenance/cost/doubled_commit.h"

namespace maintenance {
namespace {

enum class CostFormat { text, json };

struct CostArguments {
  std::string directory;
  std::string latency;  ///< microseconds, or a file; empty: none
  unsigned time_out = 120;
  bool wait = false;
  std::string plugin;
  CostFormat format = CostFormat::text;
};

bool is_number(const std::string &text) { return text.find_first_not_of("0123456789.") == std::string::npos; }

cost::Latencies latencies_of(const std::string &source) {
  if (!is_number(source)) return cost::read_latencies(source);
  try {
    return cost::latencies_from_number(source);
  } catch (const std::invalid_argument &error) {
    throw cli::UsageError(fmt::format("--latency {}", error.what()));
  }
}

cost::CostReport measure_commit(const CostArguments &arguments, const std::filesystem::path &library,
                                const Commit &commit) {
  cost::CostReport report;
  report.plugin_file = library.string();
  report.build_id = host::build_id(library);
  report.time_out = std::chrono::seconds(arguments.time_out);
  cost::MeasureOptions options;
  options.time_out = report.time_out;
  options.wait = arguments.wait;
  if (!arguments.latency.empty()) {
    report.latencies = options.latencies = latencies_of(arguments.latency);
    report.latency_source =
        is_number(arguments.latency) ? fmt::format("{} us a call", arguments.latency) : arguments.latency;
  }
  cost::Measured measured = cost::measure(library, commit, options);
  report.commit = std::move(measured.cost);
  if (arguments.wait) report.waited = measured.waited_time;
  report.doubled = cost::measure(library, cost::doubled(commit), {}).cost;
  return report;
}

cli::ExitStatus tell_cost(const CostArguments &arguments, const cli::Environment &environment) {
  if (arguments.wait && arguments.latency.empty()) throw cli::UsageError("--wait without --latency");
  const element::Schema schema;
  const Commit commit = read_commit(schema, arguments.directory);
  const std::filesystem::path library = cli::find_plugin_file(arguments.plugin, environment);
  const cost::CostReport report = measure_commit(arguments, library, commit);
  const bool is_text = arguments.format == CostFormat::text;
  cli::WrappedStream out(environment.out, is_text ? environment.columns : 0);
  is_text ? cost::write_text(out, report) : cost::write_json(out, report);
  return cost::holds_its_time(report) ? cli::ExitStatus::accepted : cli::ExitStatus::rejected;
}

const std::map<std::string, CostFormat> cost_formats{{"text", CostFormat::text}, {"json", CostFormat::json}};

}  // namespace

void add_cost(CLI::App &command, Chosen &chosen) {
  const auto arguments = std::make_shared<CostArguments>();
  command.add_option("DIR", arguments->directory, "Folder as for check")->required()->type_name("");
  command
      .add_option(
          "--latency", arguments->latency,
          "What a platform call takes on the element: microseconds, or a file (JSON) with those of each function")
      ->type_name("FILE");
  command
      .add_option("--time-out", arguments->time_out,
                  "Seconds that the element's agent gives a question; 120 unless it is given")
      ->check(CLI::Range(1, 86'400))
      ->type_name("SECONDS");
  command.add_flag("--wait", arguments->wait, "Have each call wait so long, too, and compare with the forecast");
  command.add_option("--plugin", arguments->plugin, "Validation library to ask")->type_name("FILE");
  cli::add_choice(command, "--format", cost_formats, arguments->format,
                  "Format of the result; text unless it is given");
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return tell_cost(*arguments, environment); };
  });
}

}  // namespace maintenance
