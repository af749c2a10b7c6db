#ifndef CLI_TERMINAL_COLOUR_H
#define CLI_TERMINAL_COLOUR_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"

namespace cli {

/// Whether text on standard output is set off by colour.
bool wants_colour(Colour colour, const Environment &environment);

}  // namespace cli

#endif
