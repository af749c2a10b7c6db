#ifndef CLI_COMMAND_LINE_HELP_H
#define CLI_COMMAND_LINE_HELP_H

#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// What stands below the options in the help of a command: the exit statuses that it gives, and an example.
std::string help_footer(std::string_view command);

/// What stands below the commands in the program's own help: all exit statuses.
std::string help_footer();

/// The words "help" and "version" in front of a command line as the options that they stand for: "help check" as
/// "check --help".
std::vector<std::string> without_words(const std::vector<std::string> &arguments);

}  // namespace cli

#endif
