#include "element/input/utf8.h"

#include <fmt/format.h>
#include <utf8.h>

#include <cstdint>
#include <cstring>
#include <iterator>

namespace element {
namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::uint64_t kNotAscii = 0x8080808080808080U;

/// The offset, from `begin`, of a byte close before the first one that is not ASCII.
std::size_t skip_ascii(std::string_view text, std::size_t begin) {
  std::uint64_t word = 0;
  while (begin + kWord <= text.size()) {
    std::memcpy(&word, text.data() + begin, kWord);
    if ((word & kNotAscii) != 0) break;
    begin += kWord;
  }
  return begin;
}

}  // namespace

std::optional<std::size_t> find_invalid_utf8(std::string_view text) {
  std::size_t begin = 0;
  while ((begin = skip_ascii(text, begin)) < text.size()) {
    const char *end = text.data() + begin;
    if (utf8::internal::validate_next(end, text.data() + text.size()) != utf8::internal::UTF8_OK) return begin;
    begin = static_cast<std::size_t>(end - text.data());
  }
  return std::nullopt;
}

std::string replace_invalid_utf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (const auto invalid = find_invalid_utf8(text)) {
    result += text.substr(0, *invalid);
    result += to_utf8(kReplacementCharacter);
    text.remove_prefix(*invalid + 1);
  }
  return result.append(text);
}

char32_t take_character(std::string_view &text) {
  const std::string_view front = text.substr(0, kLongestCharacter);
  char32_t code = kReplacementCharacter;
  std::size_t size = 1;
  if (utf8::find_invalid(front.begin(), front.end()) != front.begin()) {
    auto end = front.begin();
    code = utf8::next(end, front.end());
    size = static_cast<std::size_t>(end - front.begin());
  }
  text.remove_prefix(size);
  return code;
}

bool steers_terminal(char32_t code) {
  const auto is_of = [code](char32_t first, char32_t last) { return first <= code && code <= last; };
  const bool is_control = code < 0x20 || is_of(0x7f, 0x9f);
  const bool is_separator = is_of(0x2028, 0x2029);
  const bool is_direction = code == 0x061c || is_of(0x200e, 0x200f) || is_of(0x202a, 0x202e) || is_of(0x2066, 0x2069);
  return is_control || is_separator || is_direction;
}

std::string escape_of(char32_t code) {
  const auto number = static_cast<std::uint32_t>(code);
  return number < 0x100 ? fmt::format("\\x{:02x}", number) : fmt::format("\\u{:04x}", number);
}

std::string to_utf8(char32_t code) {
  std::string text;
  if (utf8::internal::is_code_point_valid(code)) utf8::append(code, std::back_inserter(text));
  return text;
}

}  // namespace element
