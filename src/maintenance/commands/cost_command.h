#ifndef MAINTENANCE_COMMANDS_COST_COMMAND_H
#define MAINTENANCE_COMMANDS_COST_COMMAND_H

#include "maintenance/commands/command_list.h"

namespace maintenance {

/// `cost`: the platform calls of each rule, how they grow, and what they take on an element.
void add_cost(CLI::App &command, Chosen &chosen);

}  // namespace maintenance

#endif
