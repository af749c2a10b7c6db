#include "report/escape/markup.h"

#include <fmt/format.h>

#include <cstdint>

#include "element/input/utf8.h"

namespace report {
namespace {

bool is_control(char32_t code) { return code < 0x20 || (code >= 0x7f && code < 0xa0); }

/// Marks that turn text around, and characters that no XML document may hold.
bool is_unprintable(char32_t code) {
  const bool turns = code == 0x200e || code == 0x200f || code == 0x061c || (code >= 0x2028 && code <= 0x202e) ||
                     (code >= 0x2066 && code <= 0x2069);
  return turns || (code & 0xfffeu) == 0xfffeu;
}

void append(std::string &markup, char32_t code) {
  if (is_control(code)) {
    markup += code == '\n' ? "\\n" : fmt::format("\\x{:02x}", std::uint32_t{code});
  } else if (is_unprintable(code)) {
    markup += fmt::format("\\u{:04x}", std::uint32_t{code});
  } else {
    markup += element::to_utf8(code);
  }
}

std::string_view reference_for(char32_t code) {
  switch (code) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return {};
  }
}

}  // namespace

std::string to_markup(std::string_view text, std::string_view marked) {
  std::string markup;
  markup.reserve(text.size());
  while (!text.empty()) {
    const char32_t code = element::take_character(text);
    const bool is_marked = code < 0x80 && marked.find(static_cast<char>(code)) != std::string_view::npos;
    const std::string_view reference = is_marked ? reference_for(code) : std::string_view();
    if (reference.empty()) {
      append(markup, code);
    } else {
      markup += reference;
    }
  }
  return markup;
}

}  // namespace report
