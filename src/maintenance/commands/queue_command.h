#ifndef MAINTENANCE_COMMANDS_QUEUE_COMMAND_H
#define MAINTENANCE_COMMANDS_QUEUE_COMMAND_H

#include "maintenance/commands/command_list.h"

namespace maintenance {

/// `queue`: which of many changes are accepted alone, which exclude each other, and an order in which all or most go
/// through.
void add_queue(CLI::App &command, Chosen &chosen);

}  // namespace maintenance

#endif
