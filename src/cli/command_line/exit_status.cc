#include "cli/command_line/exit_status.h"

namespace cli {

const std::array<ExitStatusMeaning, 13> exit_status_table{{
    {ExitStatus::accepted, "the commit is accepted, also with warnings"},
    {ExitStatus::rejected, "the commit is rejected; of an audit, faults are in force"},
    {ExitStatus::accepted_with_warnings, "the commit is accepted with warnings, under --fail-on-warn"},
    {ExitStatus::removes_too_much, "the commit removes more than --max-removed allows, whatever the verdict is"},
    {ExitStatus::nothing_to_commit, "the commit changes nothing, under --fail-on-no-change"},
    {ExitStatus::usage, "the command line is wrong"},
    {ExitStatus::bad_input, "a configuration or the element profile is wrong"},
    {ExitStatus::unreadable_file, "a file cannot be read"},
    {ExitStatus::no_plugin, "the validation library cannot be loaded"},
    {ExitStatus::internal, "internal error, or the library broke its contract"},
    {ExitStatus::out_of_memory, "memory ran out"},
    {ExitStatus::unwritable_output, "a result cannot be written"},
    {ExitStatus::no_session, "an element cannot be reached, refuses, or cannot be served over NETCONF"},
}};

int severity(ExitStatus status) {
  switch (status) {
    case ExitStatus::accepted:
      return 0;
    case ExitStatus::accepted_with_warnings:
      return 1;
    case ExitStatus::nothing_to_commit:
      return 2;
    case ExitStatus::rejected:
      return 3;
    case ExitStatus::removes_too_much:
      return 4;
    default:
      return static_cast<int>(status);
  }
}

}  // namespace cli
