#include "cli/command_line/maintenance_commands.h"

namespace cli {

const std::vector<MaintenanceCommand> &maintenance_commands() {
  static const std::vector<MaintenanceCommand> commands{
      {"cost", "Tell what a commit costs on an element, rule by rule"},
      {"coverage", "Tell what a corpus of commits shows of the library"},
      {"queue", "Tell which of many changes go together, and in which order"},
      {"shrink", "Find the smallest commit that draws the same words"},
      {"recording", "Show what the library asked on an element, and was answered"},
      {"replay", "Ask the library again what was recorded on an element"},
      {"diff", "Tell what two builds of the validation library answer differently"},
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
