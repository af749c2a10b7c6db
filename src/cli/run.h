#ifndef CLI_RUN_H
#define CLI_RUN_H

#include <functional>
#include <string>
#include <vector>

#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"

namespace cli {

/// The whole program: carries out a command line (without the program's name); every failure becomes one line on
/// `err` and a status.
ExitStatus run(const std::vector<std::string> &arguments, const Environment &environment);

/// Carries out a command line of vpnval. Every failure is an exception, but help and version end as a success.
ExitStatus run_command(const std::vector<std::string> &arguments, const Environment &environment);

/// What a program does with its command line, without the program's name; its failures are exceptions.
using Command = std::function<ExitStatus(const std::vector<std::string> &, const Environment &)>;

/// Carries out the command; every failure, also of what was written last, becomes one line on `err` and a status.
ExitStatus run_guarded(const Command &command, const std::vector<std::string> &arguments,
                       const Environment &environment);

}  // namespace cli

#endif
