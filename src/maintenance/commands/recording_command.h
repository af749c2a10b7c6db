#ifndef MAINTENANCE_COMMANDS_RECORDING_COMMAND_H
#define MAINTENANCE_COMMANDS_RECORDING_COMMAND_H

#include "maintenance/commands/command_list.h"

namespace maintenance {

/// `recording`: what the library asked on an element and what it was answered, as text, as JSON, or as a file again.
void add_recording(CLI::App &command, Chosen &chosen);

}  // namespace maintenance

#endif
