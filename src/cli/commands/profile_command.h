#ifndef CLI_COMMANDS_PROFILE_COMMAND_H
#define CLI_COMMANDS_PROFILE_COMMAND_H

#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"
#include "cli/command_line/profile_arguments.h"

namespace cli {

/// Writes the profile of an element, made of its operational data, and tells on `err` what could not be known. Throws
/// UsageError for a table of cards without a card's name, and what reading and writing throw.
ExitStatus make_profile(const ProfileArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
