#ifndef CLI_COMMAND_LINE_NEAR_NAMES_H
#define CLI_COMMAND_LINE_NEAR_NAMES_H

#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// "; did you mean check or plan?": the names that a name may have been meant to be, nearest first, three at most.
/// Empty where none is near.
std::string did_you_mean(std::string_view wanted, const std::vector<std::string> &names);

}  // namespace cli

#endif
