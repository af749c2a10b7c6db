#ifndef CLI_COMMAND_LINE_ENVIRONMENT_H
#define CLI_COMMAND_LINE_ENVIRONMENT_H

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

namespace cli {

/// What a command takes from its surroundings.
struct Environment {
  using Clock = std::chrono::steady_clock;

  std::ostream &out;              ///< the result
  std::ostream &err;              ///< errors, and text for humans where the result is for machines
  std::filesystem::path program;  ///< the executable; the validation library is looked for beside it
  std::string plugin_variable;    ///< value of VPNVAL_PLUGIN, empty when it is not set
  bool out_is_terminal = false;   ///< one that obeys escape sequences
  bool err_is_terminal = false;
  bool no_colour = false;     ///< NO_COLOR is set
  std::string search_path{};  ///< value of PATH, where other programs are looked for

  /// The time by which progress is shown and commits are timed.
  std::function<Clock::time_point()> clock = Clock::now;

  /// Of the terminal that standard output is; 0: none, or it is not known.
  std::size_t columns = 0;

  /// The day by which suppressions end, in UTC.
  std::function<std::chrono::sys_days()> today = [] {
    return std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  };
};

/// The same surroundings with another stream for errors.
inline Environment with_errors_to(std::ostream &err, const Environment &environment) {
  return {environment.out,
          err,
          environment.program,
          environment.plugin_variable,
          environment.out_is_terminal,
          environment.err_is_terminal,
          environment.no_colour,
          environment.search_path,
          environment.clock,
          environment.columns,
          environment.today};
}

}  // namespace cli

#endif
