#ifndef CLI_COMMAND_LINE_EXIT_STATUS_H
#define CLI_COMMAND_LINE_EXIT_STATUS_H

#include <array>
#include <string_view>

namespace cli {

/// What the program tells its caller. Errors begin at 64, as in sysexits.h, so that no error can be taken for a
/// verdict.
enum class ExitStatus : int {
  accepted = 0,
  rejected = 1,
  accepted_with_warnings = 2,
  removes_too_much = 3,
  nothing_to_commit = 4,
  usage = 64,
  bad_input = 65,
  unreadable_file = 66,
  no_plugin = 69,
  internal = 70,
  out_of_memory = 71,
  unwritable_output = 73,
  no_session = 76
};

struct ExitStatusMeaning {
  ExitStatus status;
  std::string_view meaning;
};

/// Orders statuses by how bad they are: accepted, warnings, nothing to commit, rejected, too much removed, then errors
/// by their number.
int severity(ExitStatus status);

/// All of them, ascending, in the words of the help.
extern const std::array<ExitStatusMeaning, 13> exit_status_table;

}  // namespace cli

#endif
