#ifndef CLI_COMMANDS_SHOW_COMMAND_H
#define CLI_COMMANDS_SHOW_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Prints a line a leaf, and a line an entry that holds no leaf, of what stands at the path, or of all derived trees.
/// Throws UsageError for a path that the data model does not have, and what reading throws.
ExitStatus show(const ShowArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
