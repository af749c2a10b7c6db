#ifndef ELEMENT_INPUT_INPUT_ERROR_H
#define ELEMENT_INPUT_INPUT_ERROR_H

#include <stdexcept>

namespace element {

/// An input that cannot be used; what() names the file, the line or path and what was expected.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An input file that cannot be opened or read. Errors in its content are plain InputErrors.
class FileError : public InputError {
 public:
  using InputError::InputError;
};

}  // namespace element

#endif
