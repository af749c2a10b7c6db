#ifndef MAINTENANCE_COMMANDS_DIFF_COMMAND_H
#define MAINTENANCE_COMMANDS_DIFF_COMMAND_H

#include "maintenance/commands/command_list.h"

namespace maintenance {

/// `vpnval diff`: what two builds of the library answer differently.
void add_diff(CLI::App &command, Chosen &chosen);

}  // namespace maintenance

#endif
