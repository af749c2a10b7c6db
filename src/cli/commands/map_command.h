#ifndef CLI_COMMANDS_MAP_COMMAND_H
#define CLI_COMMANDS_MAP_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Draws who claims which VLAN on which port, with the conflicts that the validation library sees, and tells in a line
/// what the picture holds. Accepted whatever the verdict, once the picture stands. Throws UsageError for a file that is
/// neither .svg nor .html, OutputError, and what reading, loading and validating throw.
ExitStatus map(const MapArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
