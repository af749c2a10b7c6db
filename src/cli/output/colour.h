#ifndef CLI_OUTPUT_COLOUR_H
#define CLI_OUTPUT_COLOUR_H

#include "cli/arguments.h"
#include "cli/environment.h"

namespace cli {

/// Whether the text is set off by colour.
bool wants_colour(const CheckArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
