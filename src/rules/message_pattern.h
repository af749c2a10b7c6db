#ifndef RULES_MESSAGE_PATTERN_H
#define RULES_MESSAGE_PATTERN_H

#include <cstddef>
#include <string_view>

namespace rules {

/// Whether `text` can be what printf makes of `format`: %s matches any text, also an empty one; %u matches a number, %d
/// also a negative one; anything else matches itself. Takes time in proportion to the lengths of both, multiplied.
bool is_made_by(std::string_view format, std::string_view text);

/// The number of characters of `format` that are not part of a %s, %d or %u.
std::size_t literal_length(std::string_view format);

}  // namespace rules

#endif
