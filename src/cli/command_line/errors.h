#ifndef CLI_COMMAND_LINE_ERRORS_H
#define CLI_COMMAND_LINE_ERRORS_H

#include <stdexcept>
#include <string>

#include "cli/command_line/exit_status.h"

namespace cli {

/// A command line that cannot be carried out; what() says what is wrong and what was expected.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A process that ran this program has come to no verdict; what() says why.
class WorkerError : public std::runtime_error {
 public:
  WorkerError(const std::string &why, ExitStatus child_status) : std::runtime_error(why), status(child_status) {}

  ExitStatus status;  ///< to end with
};

/// An element that cannot be reached or refuses what it is asked for; what() names it.
class ElementError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A result cannot be written; what() names where.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace cli

#endif
