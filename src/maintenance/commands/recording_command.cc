#include "maintenance/commands/recording_command.h"

#include <CLI/CLI.hpp>
#include <map>
#include <memory>

#include "cli/command_line/choice.h"
#include "cli/command_line/errors.h"
#include "cli/terminal/output_file.h"
#include "maintenance/commands/node_names.h"
#include "maintenance/commands/recording_file.h"
#include "maintenance/recording/encode.h"
#include "maintenance/transcript/anonymise.h"
#include "maintenance/transcript/json.h"
#include "maintenance/transcript/text.h"

namespace maintenance {
namespace {

enum class RecordingFormat { text, json, recording };

struct RecordingArguments {
  std::string file;
  bool from_json = false;
  bool anonymise = false;
  RecordingFormat format = RecordingFormat::text;
  std::string output;
};

std::string shown(const recording::Recording &recording, RecordingFormat format, const element::Schema &schema) {
  switch (format) {
    case RecordingFormat::text:
      return transcript::recording_text(recording, node_names(schema));
    case RecordingFormat::json:
      return transcript::to_json(recording);
    case RecordingFormat::recording:
      break;
  }
  return recording::encode(recording);
}

cli::ExitStatus run_recording(const RecordingArguments &arguments, const cli::Environment &environment) {
  const bool is_binary = arguments.format == RecordingFormat::recording;
  if (is_binary && arguments.output.empty() && environment.out_is_terminal) {
    throw cli::UsageError("a recording is no text for a terminal; expected --output FILE");
  }
  recording::Recording recording =
      arguments.from_json ? read_recording_json(arguments.file) : read_recording(arguments.file);
  const element::Schema schema;
  if (arguments.anonymise) transcript::anonymise(recording, schema);
  cli::write_whole(arguments.output, environment.out, shown(recording, arguments.format, schema));
  return cli::ExitStatus::accepted;
}

const std::map<std::string, RecordingFormat> recording_formats{
    {"text", RecordingFormat::text}, {"json", RecordingFormat::json}, {"recording", RecordingFormat::recording}};

}  // namespace

void add_recording(CLI::App &command, Chosen &chosen) {
  const auto arguments = std::make_shared<RecordingArguments>();
  command.add_option("FILE", arguments->file, "Recording; - is standard input")->required()->type_name("");
  command.add_flag("--from-json", arguments->from_json, "FILE is a recording as JSON");
  command.add_flag("--anonymise", arguments->anonymise, "Put other names in the place of the operator's");
  cli::add_choice(command, "--format", recording_formats, arguments->format,
                  "Format of the result; text unless it is given");
  command.add_option("-o,--output", arguments->output, "Write to this file instead of standard output")
      ->type_name("FILE");
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return run_recording(*arguments, environment); };
  });
}

}  // namespace maintenance
