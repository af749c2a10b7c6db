#ifndef MAINTENANCE_COMMANDS_SHRINK_COMMAND_H
#define MAINTENANCE_COMMANDS_SHRINK_COMMAND_H

#include "maintenance/commands/command_list.h"

namespace maintenance {

/// `vpnval shrink DIR`: the smallest commit that draws the same words.
void add_shrink(CLI::App &command, Chosen &chosen);

}  // namespace maintenance

#endif
