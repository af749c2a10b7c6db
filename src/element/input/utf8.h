#ifndef ELEMENT_INPUT_UTF8_H
#define ELEMENT_INPUT_UTF8_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace element {

/// What replace_invalid_utf8 and take_character put in the place of a byte that is not UTF-8: U+FFFD.
inline constexpr char32_t kReplacementCharacter = 0xfffd;

/// The most bytes that a character takes.
inline constexpr std::size_t kLongestCharacter = 4;

/// The offset of the first byte that begins no valid UTF-8 character, or nothing. Not valid are bytes out of sequence,
/// forms longer than needed, surrogates and code points above U+10FFFF.
std::optional<std::size_t> find_invalid_utf8(std::string_view text);

/// The text with U+FFFD in the place of each byte that belongs to no valid UTF-8 character.
std::string replace_invalid_utf8(std::string_view text);

/// Removes the first character from a text that is not empty and returns its code point. A byte that begins no valid
/// character is removed alone and returned as U+FFFD.
char32_t take_character(std::string_view &text);

/// Whether a terminal obeys the character in place of showing it: control characters, separators of lines, and the
/// marks that change the direction of writing, with which a name could look like another one.
bool steers_terminal(char32_t code);

/// "\x1b" for a code point below U+0100, "\u202e" for another one.
std::string escape_of(char32_t code);

/// The code point in UTF-8; empty for a surrogate or a number above U+10FFFF.
std::string to_utf8(char32_t code);

}  // namespace element

#endif
