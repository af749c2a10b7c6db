#ifndef CLI_COMMANDS_CHECK_SERIES_H
#define CLI_COMMANDS_CHECK_SERIES_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Has each of many commits decided by a process of its own, several at once, for the validation library keeps limits
/// and static state as long as its process lives. Prints the results in the order of the arguments and sums them up.
/// What goes wrong with one commit is its result. Ends with the worst status of all: an error before a rejection
/// before warnings. Throws what reading the suppressions and looking for the library throw, and OutputError; where a
/// signal asks this process to end, it does so by that signal once no child is left.
ExitStatus check_series(const CheckArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
