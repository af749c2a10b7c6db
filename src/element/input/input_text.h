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

/// The position of the byte at `offset`. An offset past the end gives the position after the last byte.
Position position_at(std::string_view text, std::size_t offset);

/// Counts the lines of a text for a reader that moves forward only. The text must outlive the counter.
class LineCounter {
 public:
  explicit LineCounter(std::string_view text) : text_(text) {}

  /// The line, from 1, of the byte at `offset`. Precondition: offsets do not decrease from call to call.
  std::size_t line_at(std::size_t offset);

 private:
  std::string_view text_;
  std::size_t counted_ = 0;
  std::size_t line_ = 1;
};

/// A piece of input for use in a one-line message: every byte that is not printable ASCII becomes \xNN, and text beyond
/// 400 bytes is cut off with "...".
std::string one_line(std::string_view text);

}  // namespace element

#endif
