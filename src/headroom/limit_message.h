#ifndef HEADROOM_LIMIT_MESSAGE_H
#define HEADROOM_LIMIT_MESSAGE_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace headroom {

/// The numbers of a message about a limit.
struct ToldNumbers {
  std::optional<std::int64_t> configured;  ///< missing where the message tells the limit alone
  std::int64_t allowed = 0;
};

/// "... Attempt to configure 129 of 128 allowed", or a message whose last number is the limit. Nothing for a text
/// without a number.
std::optional<ToldNumbers> told_numbers(std::string_view message);

}  // namespace headroom

#endif
