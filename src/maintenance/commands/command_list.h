#ifndef MAINTENANCE_COMMANDS_COMMAND_LIST_H
#define MAINTENANCE_COMMANDS_COMMAND_LIST_H

#include <functional>
#include <string>
#include <vector>

#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace CLI {
class App;
}

namespace maintenance {

/// What carries out the command that was given on the command line; set when that command is parsed.
using Chosen = std::function<cli::ExitStatus(const cli::Environment &)>;

/// Adds the options of a command to its place in the program, and has its parsing set `chosen`, which lives as long as
/// the program.
using AddCommand = void (*)(CLI::App &command, Chosen &chosen);

struct ListedCommand {
  std::string name;  ///< one of cli::maintenance_commands()
  AddCommand add;
};

const std::vector<ListedCommand> &command_list();

/// The whole program: carries out a command line without the program's name. Failures are exceptions.
cli::ExitStatus run_command(const std::vector<std::string> &arguments, const cli::Environment &environment);

}  // namespace maintenance

#endif
