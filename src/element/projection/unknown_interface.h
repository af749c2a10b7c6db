#ifndef ELEMENT_PROJECTION_UNKNOWN_INTERFACE_H
#define ELEMENT_PROJECTION_UNKNOWN_INTERFACE_H

#include <string>

#include "element/datastore/path.h"
#include "element/input/input_error.h"

namespace element {

/// A configuration names an interface that the profile does not have where the element would look up its identifier:
/// "PATH: not in the profile (near: ...); expected an interface of the profile", behind the configuration once it is
/// known.
class UnknownInterface : public InputError {
 public:
  /// `fault` is what is wrong at the path.
  UnknownInterface(Path at, const std::string &fault, const std::string &configuration = "");

  const Path &path() const { return path_; }
  const std::string &fault() const { return fault_; }
  bool is_in_running() const { return is_in_running_; }

  static constexpr const char *expected = "an interface of the profile";

 private:
  Path path_;
  std::string fault_;
  bool is_in_running_;
};

}  // namespace element

#endif
