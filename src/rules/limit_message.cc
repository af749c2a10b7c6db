#include "rules/limit_message.h"

#include <charconv>

namespace rules {
namespace {

constexpr std::string_view digits = "0123456789";

/// Returns the last number of the text, with its sign, and cuts it and all that follows it off the text.
std::optional<std::int64_t> take_last_number(std::string_view &text) {
  const std::size_t last = text.find_last_of(digits);
  if (last == std::string_view::npos) return std::nullopt;
  const std::size_t before = text.find_last_not_of(digits, last);
  std::size_t first = before == std::string_view::npos ? 0 : before + 1;
  if (first > 0 && text[first - 1] == '-') --first;

  std::int64_t number = 0;
  std::from_chars(text.data() + first, text.data() + last + 1, number);
  text = text.substr(0, first);
  return number;
}

}  // namespace

std::optional<LimitNumbers> parse_limit_message(std::string_view message) {
  const auto allowed = take_last_number(message);
  if (!allowed) return std::nullopt;
  if (!message.ends_with(" of ")) return LimitNumbers{std::nullopt, *allowed};
  return LimitNumbers{take_last_number(message), *allowed};
}

}  // namespace rules
