#ifndef CLI_COMMANDS_HEADROOM_COMMAND_H
#define CLI_COMMANDS_HEADROOM_COMMAND_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Has the validation library decide one commit for each of the elements and prints what is left of every limit. With
/// several elements this program runs itself once for each, because the library reads a card's limits once a process.
/// Throws what reading, loading and validating throw.
ExitStatus headroom(const HeadroomArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
