#ifndef CLI_COMMANDS_CHECK_COMMAND_H
#define CLI_COMMANDS_CHECK_COMMAND_H

#include "cli/arguments.h"
#include "cli/environment.h"
#include "cli/exit_status.h"

namespace cli {

/// Has the validation library decide one commit and prints difference and verdict. Throws what reading, loading and
/// validating throw.
ExitStatus check(const CheckArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
