#ifndef CLI_COMMAND_LINE_ENVIRONMENT_H
#define CLI_COMMAND_LINE_ENVIRONMENT_H

#include <chrono>
#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

namespace cli {

/// What a command takes from its surroundings.
struct Environment {
  std::ostream &out;              ///< the result
  std::ostream &err;              ///< errors, and text for humans where the result is for machines
  std::filesystem::path program;  ///< the executable; the validation library is looked for beside it
  std::string plugin_variable;    ///< value of VPNVAL_PLUGIN, empty when it is not set
  bool out_is_terminal = false;   ///< one that obeys escape sequences
  bool err_is_terminal = false;
  bool no_colour = false;     ///< NO_COLOR is set
  std::string search_path{};  ///< value of PATH, where other programs are looked for

  /// The time by which progress is shown.
  std::function<std::chrono::steady_clock::time_point()> clock = std::chrono::steady_clock::now;
};

}  // namespace cli

#endif
