#include "config_validate_comn/daemon/path_format.h"

#include <array>
#include <cstdarg>
#include <cstdio>

std::string format_path(const char *format, ...) {
  std::array<char, 512> path{};
  va_list arguments;
  va_start(arguments, format);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer overlooks the va_start above
  std::vsnprintf(path.data(), path.size(), format, arguments);
  va_end(arguments);
  return path.data();
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
