#include "maintenance/commands/commit_source.h"

#include "cli/input/commit_input.h"
#include "cli/input/input_files.h"

namespace maintenance {

Commit read_commit(const element::Schema &schema, const std::string &folder) {
  cli::InputArguments arguments;
  arguments.directory = folder;
  const cli::InputFiles files = cli::find_input_files(arguments);
  auto profile = std::make_shared<const element::Profile>(element::read_profile(files.element));
  const element::ConfigurationFile running = element::read_configuration_file(schema, files.running);
  return {std::move(profile), running.tree, cli::read_candidate(schema, running, files, {}).tree};
}

}  // namespace maintenance
