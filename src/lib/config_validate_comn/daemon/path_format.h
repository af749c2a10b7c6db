#ifndef CONFIG_VALIDATE_COMN_DAEMON_PATH_FORMAT_H
#define CONFIG_VALIDATE_COMN_DAEMON_PATH_FORMAT_H

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// A configuration path from a printf-style template, cut at 511 characters.
[[gnu::format(printf, 1, 2)]] std::string format_path(const char *format, ...);

/// The same from pieces that are put together as they are, each up to its first zero byte: for paths that are made for
/// every attachment.
std::string join_path(std::initializer_list<std::string_view> pieces);

/// A number as text, for as long as the object lives.
class decimal_t {
 public:
  explicit decimal_t(std::uint32_t number);
  operator std::string_view() const { return {digits_.data(), size_}; }

 private:
  std::array<char, 10> digits_;
  std::size_t size_;
};

/// The path as a format without conversions: every percent sign is doubled, so that a printf-style function that gets
/// no further arguments reads the path as it is. The names in a path are the operator's and may hold percent signs.
std::string as_path_format(const std::string &path);

#endif
