#ifndef CLI_ERRORS_H
#define CLI_ERRORS_H

#include <stdexcept>

namespace cli {

/// A command line that cannot be carried out; what() says what is wrong and what was expected.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The result cannot be delivered.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A result file cannot be written; what() names it.
class OutputFileError : public OutputError {
 public:
  using OutputError::OutputError;
};

}  // namespace cli

#endif
