#include "report/escape/markup.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdint>

#include "report/escape/utf8.h"

namespace report {
namespace {

/// The first character of a text; `size` bytes.
struct Character {
  std::uint32_t code = 0;
  std::size_t size = 1;
};

/// Precondition: the text is UTF-8 and not empty.
Character first_character(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) return {lead, 1};
  const std::size_t size = lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
  std::uint32_t code = lead & (0x7fu >> size);
  for (std::size_t i = 1; i < size; ++i) code = code << 6u | (static_cast<unsigned char>(text[i]) & 0x3fu);
  return {code, size};
}

bool is_control(std::uint32_t code) { return code < 0x20 || (code >= 0x7f && code < 0xa0); }

/// Marks that turn text around, and characters that no XML document may hold.
bool is_unprintable(std::uint32_t code) {
  const bool turns = code == 0x200e || code == 0x200f || code == 0x061c || (code >= 0x2028 && code <= 0x202e) ||
                     (code >= 0x2066 && code <= 0x2069);
  return turns || (code & 0xfffeu) == 0xfffeu;
}

void append(std::string &markup, const Character &character, std::string_view bytes) {
  if (is_control(character.code)) {
    markup += character.code == '\n' ? "\\n" : fmt::format("\\x{:02x}", character.code);
  } else if (is_unprintable(character.code)) {
    markup += fmt::format("\\u{:04x}", character.code);
  } else {
    markup += bytes;
  }
}

std::string_view reference_for(char c) {
  switch (c) {
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

std::string to_markup(std::string_view text) {
  const std::string valid = valid_utf8(text);
  std::string markup;
  markup.reserve(valid.size());
  for (std::string_view rest = valid; !rest.empty();) {
    const std::string_view reference = reference_for(rest.front());
    const Character character = first_character(rest);
    if (reference.empty()) {
      append(markup, character, rest.substr(0, character.size));
    } else {
      markup += reference;
    }
    rest.remove_prefix(character.size);
  }
  return markup;
}

}  // namespace report
