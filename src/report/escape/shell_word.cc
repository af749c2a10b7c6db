#include "report/escape/shell_word.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

#include "report/escape/printable.h"

namespace report {
namespace {

bool is_plain_in_shell(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 ||
         std::string_view("-_./=:,@%+").find(c) != std::string_view::npos;
}

std::string with_escapes(std::string_view text) {
  std::string word = "$'";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x20 || code >= 0x7f) {
      word += fmt::format("\\x{:02x}", code);
    } else {
      if (c == '\'' || c == '\\') word += '\\';
      word += c;
    }
  }
  return word + "'";
}

}  // namespace

std::string shell_word(std::string_view text) {
  if (printable(text) != text) return with_escapes(text);
  if (!text.empty() && std::all_of(text.begin(), text.end(), is_plain_in_shell)) return std::string(text);
  std::string word = "'";
  for (const char c : text) {
    if (c == '\'') {
      word += "'\\''";
    } else {
      word += c;
    }
  }
  return word + "'";
}

}  // namespace report
