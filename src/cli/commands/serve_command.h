#ifndef CLI_COMMANDS_SERVE_COMMAND_H
#define CLI_COMMANDS_SERVE_COMMAND_H

#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"
#include "cli/command_line/serve_arguments.h"

namespace cli {

/// Serves an element over NETCONF until a signal asks this process to end. Throws serve::ServeError where it cannot be
/// served, and what reading the element's files throws.
ExitStatus serve_element(const ServeArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
