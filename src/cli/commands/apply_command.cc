#include "cli/commands/apply_command.h"

#include "cli/command_line/errors.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/input_files.h"
#include "cli/terminal/output_file.h"
#include "element/edit/edited_configuration.h"
#include "element/output/configuration_writer.h"

namespace cli {

ExitStatus apply(const ApplyArguments &arguments, const Environment &environment) {
  if (arguments.input.directory.empty() && (arguments.input.running.empty() || arguments.input.edits.empty())) {
    throw UsageError("a directory was expected, or --running and --edit");
  }
  const InputFiles files = find_configurations(arguments.input);
  if (files.edits.empty()) throw UsageError("no edit; expected --edit, or a folder with edit.xml or .json");
  const element::ReadOptions options = read_options(arguments.input);
  const element::Schema schema;
  const element::ConfigurationFile running = element::read_configuration_file(schema, files.running, options);
  const element::ConfigurationFile candidate =
      element::edited_configuration(running, files.running, files.edits, options);
  tell_foreign_nodes(environment.err, arguments.input, {running.source, candidate.source});
  const std::string text =
      element::write_configuration(candidate.tree, arguments.format.value_or(running.source.format));
  write_whole(arguments.output, environment.out, text);
  return ExitStatus::accepted;
}

}  // namespace cli
