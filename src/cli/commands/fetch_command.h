#ifndef CLI_COMMANDS_FETCH_COMMAND_H
#define CLI_COMMANDS_FETCH_COMMAND_H

#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"
#include "cli/command_line/fetch_arguments.h"

namespace cli {

/// Writes an element's configurations, as NETCONF gives them, into a commit's folder; all of them or none. What else
/// stands in the folder is left alone. Throws ElementError where they cannot be had, and OutputError.
ExitStatus fetch(const FetchArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
