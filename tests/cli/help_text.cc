#include "tests/cli/help_text.h"

#include <regex>
#include <sstream>

#include "cli/command_line/maintenance_commands.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

/// The options of "-h, --help", "-o,--output FILE" or "--format FORMAT".
void add_options(const std::string &definition, std::set<std::string> &options) {
  std::size_t at = 0;
  while (at < definition.size() && definition[at] == '-') {
    const std::size_t end = definition.find_first_of(" ,=", at);
    options.insert(definition.substr(at, end - at));
    if (end == std::string::npos || definition[end] != ',') return;
    at = definition.find_first_not_of(", ", end);
  }
}

}  // namespace

std::string help_of(const std::string &command) {
  if (command.empty()) return run_with_answers({"--help"}).out;
  // Another program takes the place of the process that it is asked in.
  if (!cli::maintenance_description(command).empty())
    return run_process(vpnval_file() + " " + command + " --help").output;
  return run_with_answers({command, "--help"}).out;
}

std::set<std::string> options_at_line_begin(const std::string &text, std::size_t indent) {
  std::set<std::string> options;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.find_first_not_of(' ') == indent) add_options(line.substr(indent), options);
  }
  return options;
}

std::map<std::string, std::set<std::string>> listed_values_in_help(const std::string &command) {
  static const std::regex line("(?:^|\n)  (?:-[a-z],)?(--[a-z-]+) [A-Z]*:\\{([^}]*)\\}");
  const std::string help = help_of(command);
  std::map<std::string, std::set<std::string>> values;
  for (std::sregex_iterator at(help.begin(), help.end(), line), end; at != end; ++at) {
    std::istringstream list((*at)[2]);
    for (std::string value; std::getline(list, value, ',');) values[(*at)[1]].insert(value);
  }
  return values;
}

std::vector<std::string> commands_in_help() {
  const std::string help = help_of("");
  const std::string heading = "Subcommands:\n";
  std::istringstream lines(help.substr(help.find(heading) + heading.size()));
  std::vector<std::string> commands;
  for (std::string line; std::getline(lines, line) && !line.empty();) {
    commands.push_back(line.substr(2, line.find(' ', 2) - 2));
  }
  return commands;
}

std::set<std::string> options_in_help(const std::string &command) { return options_at_line_begin(help_of(command), 2); }
