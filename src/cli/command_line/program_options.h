#ifndef CLI_COMMAND_LINE_PROGRAM_OPTIONS_H
#define CLI_COMMAND_LINE_PROGRAM_OPTIONS_H

#include <string>
#include <vector>

#include "cli/command_line/environment.h"

namespace CLI {
class App;
}

namespace cli {

/// Reads a command line without the program's name, for a program whose commands and their options have been added;
/// adds what every program of ours has: version, statuses and examples in the help, "help" and "version" as words.
/// False: help or version was all that was asked for and is printed. Throws UsageError, with the names that are near
/// where a command or an option is not known.
bool parse_program(CLI::App &program, const std::vector<std::string> &arguments, const Environment &environment);

}  // namespace cli

#endif
