#include "maintenance/commands/command_list.h"

#include <CLI/CLI.hpp>

#include "cli/command_line/maintenance_commands.h"
#include "cli/command_line/program_options.h"
#include "maintenance/commands/cost_command.h"
#include "maintenance/commands/coverage_command.h"
#include "maintenance/commands/diff_command.h"
#include "maintenance/commands/queue_command.h"
#include "maintenance/commands/recording_command.h"
#include "maintenance/commands/replay_command.h"
#include "maintenance/commands/shrink_command.h"

namespace maintenance {

const std::vector<ListedCommand> &command_list() {
  static const std::vector<ListedCommand> commands{
      {"cost", add_cost},           {"coverage", add_coverage}, {"queue", add_queue}, {"shrink", add_shrink},
      {"recording", add_recording}, {"replay", add_replay},     {"diff", add_diff},
  };
  return commands;
}

cli::ExitStatus run_command(const std::vector<std::string> &arguments, const cli::Environment &environment) {
  CLI::App program;
  Chosen chosen;
  for (const ListedCommand &listed : command_list()) {
    listed.add(*program.add_subcommand(listed.name, std::string(cli::maintenance_description(listed.name))), chosen);
  }
  return cli::parse_program(program, arguments, environment) ? chosen(environment) : cli::ExitStatus::accepted;
}

}  // namespace maintenance
