#include "tests/cli/help_text.h"

#include <regex>
#include <sstream>

#include "tests/cli/commit_folder.h"

namespace {

std::string help_of(const std::string &command) {
  return command.empty() ? run_with_answers({"--help"}).out : run_with_answers({command, "--help"}).out;
}

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
