#ifndef CLI_TERMINAL_COLOUR_H
#define CLI_TERMINAL_COLOUR_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"

namespace cli {

/// Whether the text is set off by colour.
bool wants_colour(const CheckArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
