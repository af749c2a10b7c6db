#ifndef CLI_COMMAND_LINE_CHOICE_H
#define CLI_COMMAND_LINE_CHOICE_H

#include <CLI/CLI.hpp>
#include <map>
#include <string>

namespace cli {

/// An option that takes one of the names, which must live as long as the command, and sets the value to what it stands
/// for.
template <typename Value>
void add_choice(CLI::App &command, const std::string &option, const std::map<std::string, Value> &names, Value &value,
                const std::string &description) {
  command
      .add_option_function<std::string>(
          option, [&names, &value](const std::string &name) { value = names.at(name); }, description)
      ->check(CLI::IsMember(names))
      ->type_name("NAME");
}

}  // namespace cli

#endif
