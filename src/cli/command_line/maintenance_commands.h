#ifndef CLI_COMMAND_LINE_MAINTENANCE_COMMANDS_H
#define CLI_COMMAND_LINE_MAINTENANCE_COMMANDS_H

#include <string_view>
#include <vector>

namespace cli {

/// A command for those who maintain the validation library. A program of its own carries it out, so that the one that
/// decides commits does not grow.
struct MaintenanceCommand {
  std::string_view name;
  std::string_view description;  ///< in the list of commands
};

/// All of them, in the order of the help.
const std::vector<MaintenanceCommand> &maintenance_commands();

/// The description of a command of the list; empty where it is none of them.
std::string_view maintenance_description(std::string_view name);

}  // namespace cli

#endif
