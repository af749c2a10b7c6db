#include "config_validate_comn/daemon/path_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::size_t kMaxPathLength = 511;

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

std::string join_path(std::initializer_list<std::string_view> pieces) {
  std::array<char, kMaxPathLength> path;
  std::size_t size = 0;
  for (std::string_view piece : pieces) {
    piece = piece.substr(0, path.size() - size);
    const void *zero = piece.empty() ? nullptr : std::memchr(piece.data(), '\0', piece.size());
    if (zero != nullptr) piece = piece.substr(0, piece.find('\0'));
    piece.copy(path.data() + size, piece.size());
    size += piece.size();
  }
  return {path.data(), size};
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
