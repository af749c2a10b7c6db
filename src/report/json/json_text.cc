#include "report/json/json_text.h"

#include <fmt/format.h>

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string_view>

#include "element/input/utf8.h"

namespace report {
namespace {

/// Characters from here on are not escaped by the JSON library.
constexpr char32_t kFirstUnescaped = 0x7f;

/// The bytes with which a character begins that steers a terminal.
constexpr std::string_view kSteeringBytes = "\x7f\xc2\xd8\xe2";

}  // namespace

std::string json_text(const nlohmann::ordered_json &json, int indent) {
  std::string text = json.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
  if (text.find_first_of(kSteeringBytes) == std::string::npos) return text;
  std::string result;
  result.reserve(text.size());
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view before = rest;
    const char32_t code = element::take_character(rest);
    if (code >= kFirstUnescaped && element::steers_terminal(code)) {
      result += fmt::format("\\u{:04x}", static_cast<std::uint32_t>(code));
    } else {
      result += before.substr(0, before.size() - rest.size());
    }
  }
  return result;
}

}  // namespace report
