#include "maintenance/commands/replay_command.h"

#include <CLI/CLI.hpp>
#include <map>
#include <memory>

#include "cli/command_line/choice.h"
#include "cli/input/plugin_file.h"
#include "element/input/input_error.h"
#include "host/run/plugin.h"
#include "maintenance/commands/commit_source.h"
#include "maintenance/commands/recording_file.h"
#include "maintenance/commits/commit_folder.h"
#include "maintenance/reconstruction/rebuilt_commit.h"
#include "maintenance/replay/replay.h"
#include "maintenance/transcript/replay_report.h"

namespace maintenance {
namespace {

enum class ReplayFormat { text, json };

struct ReplayArguments {
  std::string file;
  std::string plugin;
  std::string commit;  ///< folder to write; empty: none
  ReplayFormat format = ReplayFormat::text;
};

replay::Outcome replayed(const recording::Recording &recording, const std::filesystem::path &plugin) {
  try {
    return replay::replay(recording, plugin);
  } catch (const replay::ReplayError &error) {
    throw host::LoadError(plugin.string() + ": " + error.what());
  }
}

cli::ExitStatus write_commit(const ReplayArguments &arguments, const cli::Environment &environment,
                             const recording::Recording &recording) {
  const element::Schema schema;
  const reconstruction::RebuiltCommit rebuilt = rebuilt_commit(recording, schema, arguments.file);
  write_commit_folder(rebuilt.commit, arguments.commit);
  const auto plugin = cli::find_plugin_file(arguments.plugin, environment);
  const std::optional<host::PointVerdict> verdict = reconstruction::asked_about(rebuilt.commit, recording, plugin);
  const transcript::CommitAnswer answer = transcript::commit_answer(recording, verdict);
  environment.out << (arguments.format == ReplayFormat::json
                          ? transcript::commit_json(recording, arguments.commit, rebuilt.made_up, answer)
                          : transcript::commit_text(recording, arguments.commit, rebuilt.made_up, answer));
  return answer.is_same ? cli::ExitStatus::accepted : cli::ExitStatus::rejected;
}

cli::ExitStatus run_replay(const ReplayArguments &arguments, const cli::Environment &environment) {
  const recording::Recording recording = read_recording(arguments.file);
  if (!arguments.commit.empty()) return write_commit(arguments, environment, recording);
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
  command
      .add_option("--commit", arguments->commit,
                  "Write what the recording knows as a commit into this folder, and ask the library about it")
      ->type_name("DIR");
  cli::add_choice(command, "--format", replay_formats, arguments->format,
                  "Format of the result; text unless it is given");
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return run_replay(*arguments, environment); };
  });
}

}  // namespace maintenance
