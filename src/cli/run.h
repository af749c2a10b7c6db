#ifndef CLI_RUN_H
#define CLI_RUN_H

#include <string>
#include <vector>

#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// The whole program: carries out a command line (without the program's name); every failure becomes one line on
/// `err` and a status.
ExitStatus run(const std::vector<std::string> &arguments, const Environment &environment);

}  // namespace cli

#endif
