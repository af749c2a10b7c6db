#include "cli/terminal/wrapped_stream.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace cli {
namespace {

/// Fewer columns leave no room beside the indent.
constexpr std::size_t kFewestColumns = 20;

/// Columns that a text takes: an escape sequence none, a character of several bytes one.
std::size_t width_of(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\x1b') {
      i = std::min(text.find('m', i), text.size());
    } else if ((static_cast<unsigned char>(text[i]) & 0xc0U) != 0x80U) {
      ++width;
    }
  }
  return width;
}

std::string wrapped(std::string_view line, std::size_t columns) {
  const std::size_t begin = std::min(line.find_first_not_of(' '), line.size());
  const std::string indent(std::min(begin + 2, columns / 2), ' ');
  std::string text(line.substr(0, begin));
  std::size_t column = begin;
  bool is_first = true;
  for (std::string_view rest = line.substr(begin); !rest.empty();) {
    const std::size_t gap = std::min(rest.find_first_not_of(' '), rest.size());
    const std::size_t end = std::min(rest.find(' ', gap), rest.size());
    const std::string_view word = rest.substr(gap, end - gap);
    if (!is_first && column + gap + width_of(word) > columns) {
      text += '\n' + indent;
      column = indent.size();
    } else {
      text += rest.substr(0, gap);
      column += gap;
    }
    text += word;
    column += width_of(word);
    rest.remove_prefix(end);
    is_first = false;
  }
  return text;
}

}  // namespace

WrappedStream::WrappedStream(std::ostream &target, std::size_t columns)
    : std::ostream(nullptr), buffer_(target, columns) {
  rdbuf(&buffer_);
}

WrappedStream::~WrappedStream() { buffer_.write_line(); }

void WrappedStream::Buffer::write_line() {
  if (line_.empty()) return;
  const bool has_end = line_.back() == '\n';
  if (has_end) line_.pop_back();
  out_ << (columns_ < kFewestColumns ? line_ : wrapped(line_, columns_)) << (has_end ? "\n" : "");
  line_.clear();
}

WrappedStream::Buffer::int_type WrappedStream::Buffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
  line_ += traits_type::to_char_type(character);
  if (line_.back() == '\n') write_line();
  return character;
}

int WrappedStream::Buffer::sync() {
  out_.flush();
  return 0;
}

}  // namespace cli
