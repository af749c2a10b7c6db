#ifndef MAINTENANCE_COMMANDS_COVERAGE_COMMAND_H
#define MAINTENANCE_COMMANDS_COVERAGE_COMMAND_H

#include "maintenance/commands/command_list.h"

namespace maintenance {

/// `coverage`: what a corpus of commits shows of the library, which cells it leaves empty, and commits that fill them.
void add_coverage(CLI::App &command, Chosen &chosen);

}  // namespace maintenance

#endif
