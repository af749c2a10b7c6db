#ifndef RULES_LIMIT_MESSAGE_H
#define RULES_LIMIT_MESSAGE_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace rules {

/// The numbers in a message about a limit.
struct LimitNumbers {
  std::optional<std::int64_t> configured;  ///< missing if the message names the limit only
  std::int64_t allowed = 0;
};

/// Reads "... Attempt to configure 129 of 128 allowed", or a message whose last number is the limit. Nothing for a text
/// without a number.
std::optional<LimitNumbers> parse_limit_message(std::string_view message);

}  // namespace rules

#endif
