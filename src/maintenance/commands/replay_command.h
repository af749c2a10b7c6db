#ifndef MAINTENANCE_COMMANDS_REPLAY_COMMAND_H
#define MAINTENANCE_COMMANDS_REPLAY_COMMAND_H

#include "maintenance/commands/command_list.h"

namespace maintenance {

/// `replay`: has a library decide again what was recorded, each call answered from the recording.
void add_replay(CLI::App &command, Chosen &chosen);

}  // namespace maintenance

#endif
