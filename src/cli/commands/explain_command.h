#ifndef CLI_COMMANDS_EXPLAIN_COMMAND_H
#define CLI_COMMANDS_EXPLAIN_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Prints the pages of rules, found by id or by a message's text, which two points may have in common; the ids with
/// their messages of a validation point's rules, of those whose pages have all the words, or of all. One rule with the
/// words has its page printed. Throws UsageError for a rule that there is not.
ExitStatus explain(const ExplainArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
