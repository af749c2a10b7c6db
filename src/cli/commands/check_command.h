#ifndef CLI_COMMANDS_CHECK_COMMAND_H
#define CLI_COMMANDS_CHECK_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Has the validation library decide one commit and prints difference and verdict. Throws what reading, loading and
/// validating throw.
ExitStatus check(const CheckArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
