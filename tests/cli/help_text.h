#ifndef TESTS_CLI_HELP_TEXT_H
#define TESTS_CLI_HELP_TEXT_H

#include <map>
#include <set>
#include <string>
#include <vector>

// What the program's own help says, for the tests that hold something else against it.

/// The commands that `vpnval --help` lists, in its order.
std::vector<std::string> commands_in_help();

/// The help of the command, of whichever program it is; of the program itself for an empty command.
std::string help_of(const std::string &command);

/// The options, short and long, that the help of the command lists; of the program itself for an empty command.
std::set<std::string> options_in_help(const std::string &command);

/// The options of the command that list their values, as "--format FORMAT:{text,json}", with these values.
std::map<std::string, std::set<std::string>> listed_values_in_help(const std::string &command);

/// The options that stand in a text at the beginning of an indented line: "  -h,--help  Print" has two.
std::set<std::string> options_at_line_begin(const std::string &text, std::size_t indent);

#endif
