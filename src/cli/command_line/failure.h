#ifndef CLI_COMMAND_LINE_FAILURE_H
#define CLI_COMMAND_LINE_FAILURE_H

#include <string>

#include "cli/command_line/exit_status.h"

namespace cli {

/// What an exception comes to.
struct Failure {
  ExitStatus status = ExitStatus::internal;
  std::string text;  ///< one line
};

/// Of the exception that is being handled. Throws std::bad_alloc on: there may be no memory for a text.
Failure current_failure();

}  // namespace cli

#endif
