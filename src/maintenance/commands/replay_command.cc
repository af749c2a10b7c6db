#include "maintenance/commands/replay_command.h"

#include <CLI/CLI.hpp>
#include <map>
#include <memory>

#include "cli/command_line/choice.h"
#include "cli/input/plugin_file.h"
#include "host/run/plugin.h"
#include "maintenance/commands/recording_file.h"
#include "maintenance/replay/replay.h"
#include "maintenance/transcript/replay_report.h"

namespace maintenance {
namespace {

enum class ReplayFormat { text, json };

struct ReplayArguments {
  std::string file;
  std::string plugin;
  ReplayFormat format = ReplayFormat::text;
};

replay::Outcome replayed(const recording::Recording &recording, const std::filesystem::path &plugin) {
  try {
    return replay::replay(recording, plugin);
  } catch (const replay::ReplayError &error) {
    throw host::LoadError(plugin.string() + ": " + error.what());
  }
}

cli::ExitStatus run_replay(const ReplayArguments &arguments, const cli::Environment &environment) {
  const recording::Recording recording = read_recording(arguments.file);
  const replay::Outcome outcome = replayed(recording, cli::find_plugin_file(arguments.plugin, environment));
  environment.out << (arguments.format == ReplayFormat::json ? transcript::replay_json(recording, outcome)
                                                             : transcript::replay_text(recording, outcome));
  return outcome.is_same_as(recording) ? cli::ExitStatus::accepted : cli::ExitStatus::rejected;
}

const std::map<std::string, ReplayFormat> replay_formats{{"text", ReplayFormat::text}, {"json", ReplayFormat::json}};

}  // namespace

void add_replay(CLI::App &command, Chosen &chosen) {
  const auto arguments = std::make_shared<ReplayArguments>();
  command.add_option("RECORDING", arguments->file, "Recording; - is standard input")->required()->type_name("");
  command.add_option("--plugin", arguments->plugin, "Validation library to ask")->type_name("FILE");
  cli::add_choice(command, "--format", replay_formats, arguments->format,
                  "Format of the result; text unless it is given");
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return run_replay(*arguments, environment); };
  });
}

}  // namespace maintenance
