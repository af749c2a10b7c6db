#ifndef MAINTENANCE_COST_CHILD_TEXT_H
#define MAINTENANCE_COST_CHILD_TEXT_H

#include <functional>
#include <string>

namespace cost {

/// The text that `make` returns in a child of this process, which ends with it. Throws std::runtime_error with the text
/// of an exception that leaves `make`, or where the child dies otherwise.
std::string text_of_child(const std::function<std::string()> &make);

}  // namespace cost

#endif
