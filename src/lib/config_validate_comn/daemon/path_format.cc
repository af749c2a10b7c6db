#include "config_validate_comn/daemon/path_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdarg>
#include <cstdio>

namespace {

constexpr std::size_t kMaxPathLength = 511;

using path_text_t = std::array<char, kMaxPathLength>;

std::string_view whole(std::string_view piece) { return piece; }

std::string_view up_to_zero(std::string_view piece) { return piece.substr(0, piece.find('\0')); }

std::string_view join(std::initializer_list<std::string_view> pieces, std::string_view (&part)(std::string_view),
                      path_text_t &path) {
  std::size_t size = 0;
  for (std::string_view piece : pieces) size += part(piece).copy(path.data() + size, path.size() - size);
  return {path.data(), size};
}

}  // namespace

std::string format_path(const char *format, ...) {
  std::array<char, kMaxPathLength + 1> path;
  path[0] = 0;
  va_list arguments;
  va_start(arguments, format);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer overlooks the va_start above
  std::vsnprintf(path.data(), path.size(), format, arguments);
  va_end(arguments);
  return path.data();
}

// Hardly a name holds a zero byte: one look at the whole is cheaper than one at each piece.
std::string join_path(std::initializer_list<std::string_view> pieces) {
  path_text_t text;
  const std::string_view path = join(pieces, whole, text);
  if (path.find('\0') == std::string_view::npos) return std::string(path);
  return std::string(join(pieces, up_to_zero, text));
}

decimal_t::decimal_t(std::uint32_t number) {
  const std::to_chars_result end = std::to_chars(digits_.begin(), digits_.end(), number);
  size_ = static_cast<std::size_t>(end.ptr - digits_.data());
}

std::string as_path_format(const std::string &path) {
  std::string format;
  format.reserve(path.size());
  for (const char c : path) {
    if (c == '%') format += c;
    format += c;
  }
  return format;
}
