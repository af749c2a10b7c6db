#ifndef CLI_COMMANDS_APPLY_COMMAND_H
#define CLI_COMMANDS_APPLY_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Writes the candidate that edits make of the running configuration. The library is not asked. Throws UsageError
/// without an edit, and what reading and writing throw.
ExitStatus apply(const ApplyArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
