#ifndef RULES_MESSAGE_PATTERN_H
#define RULES_MESSAGE_PATTERN_H

#include <cstddef>
#include <string_view>

namespace rules {

/// Whether the format makes the text: %s stands for any text, also an empty one; %d and %u for a number, %d also for a
/// negative one. Time is in proportion to the text's length, whatever the names in it hold.
bool is_made_by(std::string_view format, std::string_view text);

/// How many characters of the format stand in every text that it makes.
std::size_t literal_length(std::string_view format);

}  // namespace rules

#endif
