#ifndef MAINTENANCE_COST_CHILD_TEXT_H
#define MAINTENANCE_COST_CHILD_TEXT_H

#include <functional>
#include <string>

namespace cost {

/// The text that `make` returns in a child of this process, which ends with it. Throws std::runtime_error with the text
/// of an exception that leaves `make`, or where the child dies otherwise.
std::string text_of_child(const std::function<std::string()> &make);

/// What a child has written until it ended.
struct ChildOutput {
  std::string text;
  bool has_died = false;  ///< in the middle; else it wrote all that it had to
};

using Write = std::function<void(const std::string &)>;

/// What `make` writes in a child of this process, up to where the child dies, if it does. Nothing of what else the
/// child prints on standard error is seen. Throws std::runtime_error with the text of an exception that leaves `make`.
ChildOutput output_of_child(const std::function<void(const Write &)> &make);

}  // namespace cost

#endif
