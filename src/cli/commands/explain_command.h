#ifndef CLI_COMMANDS_EXPLAIN_COMMAND_H
#define CLI_COMMANDS_EXPLAIN_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Prints the page of a rule, found by its id or by a message's text, which two points may have in common; or all ids
/// with their messages. Throws UsageError for a rule that there is not.
ExitStatus explain(const ExplainArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
