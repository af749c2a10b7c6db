#include "cli/command_line/program_options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/command_line/errors.h"
#include "cli/command_line/help.h"
#include "cli/command_line/near_names.h"

namespace cli {
namespace {

std::vector<std::string> option_names(const CLI::App &command) {
  std::vector<std::string> names;
  for (const CLI::Option *option : command.get_options()) {
    for (const std::string &name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

/// What a command or an option that there is not may have been meant to be.
std::string suggestion(const CLI::App &program, const std::vector<std::string> &arguments) {
  std::vector<std::string> commands;
  const CLI::App *given = nullptr;
  for (const CLI::App *command : program.get_subcommands([](const CLI::App *) { return true; })) {
    commands.push_back(command->get_name());
    if (!arguments.empty() && arguments.front() == command->get_name()) given = command;
  }
  if (given == nullptr) {
    if (arguments.empty() || arguments.front().starts_with('-')) return {};
    return fmt::format(": there is no \"{}\"{}", arguments.front(), did_you_mean(arguments.front(), commands));
  }
  const std::vector<std::string> names = option_names(*given);
  for (const std::string &argument : arguments) {
    const std::string name = argument.substr(0, argument.find('='));
    if (argument == "--") break;
    const bool is_known = std::find(names.begin(), names.end(), name) != names.end();
    if (name.starts_with("--") && !is_known) return did_you_mean(name, names);
  }
  return {};
}

/// Of what help is asked for, if it is a command.
void require_known_command(const CLI::App &program, const std::vector<std::string> &options) {
  const auto is_first = [&options](const CLI::App *command) { return command->get_name() == options.front(); };
  if (options.size() < 2 || !program.get_subcommands(is_first).empty()) return;
  throw UsageError("no help" + suggestion(program, options));
}

void add_common(CLI::App &program) {
  program.name("vpnval");
  program.description("Checks commits of MPLS layer-2 VPN configuration off the network element.");
  program.set_version_flag("--version", "vpnval " VPNVAL_VERSION);
  program.require_subcommand(1);
  program.footer(help_footer());
  for (CLI::App *command : program.get_subcommands({})) command->footer(help_footer(command->get_name()));
}

}  // namespace

bool parse_program(CLI::App &program, const std::vector<std::string> &arguments, const Environment &environment) {
  add_common(program);
  const std::vector<std::string> options = without_words(arguments);
  if (options != arguments) require_known_command(program, options);
  std::vector<std::string> reversed(options.rbegin(), options.rend());
  try {
    program.parse(reversed);
  } catch (const CLI::Success &request) {
    program.exit(request, environment.out, environment.err);
    return false;
  } catch (const CLI::ParseError &error) {
    throw UsageError(
        fmt::format("{}{} (vpnval --help lists what is expected)", error.what(), suggestion(program, options)));
  }
  return true;
}

}  // namespace cli
