#ifndef CLI_COMMANDS_MAINTENANCE_PROGRAM_H
#define CLI_COMMANDS_MAINTENANCE_PROGRAM_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// Carries out a command of maintenance_commands() by becoming vpnval-maintenance, which stands beside the program in a
/// build and in ../libexec/vpnval of an installation. Returns no status but that program's own, for it takes this
/// process over. Throws WorkerError where it is not there or cannot be executed.
ExitStatus become_maintenance_program(const MaintenanceArguments &arguments, const Environment &environment);

}  // namespace cli

#endif
