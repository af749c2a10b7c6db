#include "vlan_map/markup.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdint>

namespace vlan_map {
namespace {

constexpr std::string_view kReplacement = "\xef\xbf\xbd";

/// A character at the begin of a text; `size` bytes. One that is not UTF-8 has one byte and is not valid.
struct Character {
  std::uint32_t code = 0;
  std::size_t size = 1;
  bool valid = true;
};

constexpr Character kInvalid{0, 1, false};

std::size_t size_told_by(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xc2 && lead < 0xe0) return 2;
  if (lead >= 0xe0 && lead < 0xf0) return 3;
  if (lead >= 0xf0 && lead < 0xf5) return 4;
  return 0;
}

bool is_character(std::uint32_t code, std::size_t size) {
  static constexpr std::uint32_t least[]{0, 0, 0x80, 0x800, 0x10000};
  const bool is_surrogate = code >= 0xd800 && code < 0xe000;
  return code >= least[size] && code <= 0x10ffff && !is_surrogate;
}

Character first_character(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t size = size_told_by(lead);
  if (size == 1) return {lead, 1, true};
  if (size == 0 || text.size() < size) return kInvalid;
  std::uint32_t code = lead & (0x7fu >> size);
  for (std::size_t i = 1; i < size; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xc0u) != 0x80u) return kInvalid;
    code = code << 6u | (byte & 0x3fu);
  }
  return is_character(code, size) ? Character{code, size, true} : kInvalid;
}

bool is_control(std::uint32_t code) { return code < 0x20 || (code >= 0x7f && code < 0xa0); }

/// Marks that turn text around, and characters that no XML document may hold.
bool is_unprintable(std::uint32_t code) {
  const bool turns = code == 0x200e || code == 0x200f || code == 0x061c || (code >= 0x2028 && code <= 0x202e) ||
                     (code >= 0x2066 && code <= 0x2069);
  return turns || (code & 0xfffeu) == 0xfffeu;
}

void append(std::string &markup, const Character &character, std::string_view bytes) {
  if (!character.valid) {
    markup += kReplacement;
  } else if (is_control(character.code)) {
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
  std::string markup;
  markup.reserve(text.size());
  while (!text.empty()) {
    const std::string_view reference = reference_for(text.front());
    const Character character = first_character(text);
    if (reference.empty()) {
      append(markup, character, text.substr(0, character.size));
    } else {
      markup += reference;
    }
    text.remove_prefix(character.size);
  }
  return markup;
}

}  // namespace vlan_map
