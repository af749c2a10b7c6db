#include "cli/command_line/maintenance_commands.h"

namespace cli {

const std::vector<MaintenanceCommand> &maintenance_commands() {
  static const std::vector<MaintenanceCommand> commands{
      {"queue", "Tell which of many changes go together, and in which order"},
      {"shrink", "Find the smallest commit that draws the same words"},
  };
  return commands;
}

std::string_view maintenance_description(std::string_view name) {
  for (const MaintenanceCommand &command : maintenance_commands()) {
    if (command.name == name) return command.description;
  }
  return {};
}

}  // namespace cli
