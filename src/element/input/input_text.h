#ifndef ELEMENT_INPUT_INPUT_TEXT_H
#define ELEMENT_INPUT_INPUT_TEXT_H

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace element {

/// The largest input file in bytes. A configuration of this size is far beyond any element; the bound keeps an endless
/// source from eating the memory.
inline constexpr std::size_t kMaxInputSize = std::size_t{1} << 30;

/// A place in a text; line and column count from 1, the column in bytes.
struct Position {
  std::size_t line = 1;
  std::size_t column = 1;
};

/// The whole content of an input file. Throws FileError where it cannot be opened or read, InputError where it is
/// larger than kMaxInputSize.
std::string read_input(const std::filesystem::path &file);

/// The place of the byte at `offset`; past the end, the place after the last byte.
Position position_at(std::string_view text, std::size_t offset);

/// Counts lines for a reader that goes through a text once.
class LineCounter {
 public:
  explicit LineCounter(std::string_view text) : text_(text) {}

  /// The line, from 1, of the byte at `offset`, which is not before the offset of the last call.
  std::size_t line_at(std::size_t offset);

 private:
  std::string_view text_;
  std::size_t counted_ = 0;
  std::size_t line_ = 1;
};

/// A piece of input as one line of a message may hold it: control characters as \xNN, long text cut short.
std::string one_line(std::string_view text);

}  // namespace element

#endif
