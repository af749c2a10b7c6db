#ifndef ELEMENT_INPUT_INPUT_TEXT_H
#define ELEMENT_INPUT_INPUT_TEXT_H

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace element {

/// The largest input file in bytes. No element has a configuration of this size; the bound keeps an endless pipe from
/// using up the memory.
inline constexpr std::size_t kMaxInputSize = std::size_t{1} << 30;

/// What may stand around the content of a file.
inline constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
inline constexpr std::string_view kBlank = " \t\r\n";

/// A position in a text; line and column count from 1, the column in bytes.
struct Position {
  std::size_t line = 1;
  std::size_t column = 1;
};

/// The whole content of an input file. Throws FileError if it cannot be opened or read, InputError if it is larger than
/// kMaxInputSize.
std::string read_input(const std::filesystem::path &file);

/// The text without blanks around it.
std::string_view trimmed(std::string_view text);

/// How many bytes of an input a message quotes at once.
inline constexpr std::size_t kLongestQuote = 400;

/// A piece of input for use in a one-line message: a character that steers_terminal becomes its escape_of, a byte that
/// is not UTF-8 \xNN; text beyond `longest` bytes is cut off with "...".
std::string one_line(std::string_view text, std::size_t longest = kLongestQuote);

}  // namespace element

#endif
