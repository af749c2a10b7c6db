#ifndef CLI_COMMANDS_PLAN_COMMAND_H
#define CLI_COMMANDS_PLAN_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Splits a commit into steps that the validation library accepts one after the other, writes each as a folder for
/// check, and lists what each changes. Accepted once the steps stand, rejected where none were found. Throws
/// OutputError, and what reading, loading and validating throw.
ExitStatus plan(const PlanArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
