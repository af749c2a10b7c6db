#ifndef MAINTENANCE_COST_CHILD_TEXT_H
#define MAINTENANCE_COST_CHILD_TEXT_H

#include <functional>
#include <string>

namespace cost {

/// Runs `make` in a child process and returns its text. Throws std::runtime_error with the text of an exception that
/// leaves `make`, or where the child dies of something else.
std::string text_of_child(const std::function<std::string()> &make);

/// What a child process has written.
struct ChildOutput {
  std::string text;
  bool has_died = false;  ///< before `make` returned, so that the text may be cut
};

using Write = std::function<void(const std::string &)>;

/// Runs `make` in a child process and returns what it wrote, also where the child died on the way. What the child
/// prints on standard error is dropped. Throws std::runtime_error with the text of an exception that leaves `make`.
ChildOutput output_of_child(const std::function<void(const Write &)> &make);

}  // namespace cost

#endif
