#include "rules/message_pattern.h"

#include <algorithm>
#include <vector>

namespace rules {
namespace {

/// For each position in a text, and its end: whether the part of a format that was matched so far can end there.
using Ends = std::vector<bool>;

bool is_conversion(std::string_view format, std::size_t at) {
  return format[at] == '%' && at + 1 < format.size() && std::string_view("sdu").find(format[at + 1]) != format.npos;
}

std::size_t next_conversion(std::string_view format, std::size_t at) {
  while (at < format.size() && !is_conversion(format, at)) ++at;
  return at;
}

std::size_t after_last_conversion(std::string_view format) {
  std::size_t at = format.size();
  while (at > 0 && !is_conversion(format, at - 1)) --at;
  return at == 0 ? 0 : at + 1;
}

/// Whether the text begins as the format does before its first conversion, and ends as it does after its last.
bool has_literal_ends(std::string_view format, std::string_view text) {
  return text.starts_with(format.substr(0, next_conversion(format, 0))) &&
         text.ends_with(format.substr(after_last_conversion(format)));
}

Ends after_literal(const Ends &before, std::string_view text, std::string_view literal) {
  Ends after(before.size(), false);
  for (std::size_t at = 0; at + literal.size() <= text.size(); ++at) {
    if (before[at] && text.substr(at, literal.size()) == literal) after[at + literal.size()] = true;
  }
  return after;
}

Ends after_name(const Ends &before) {
  Ends after = before;
  std::fill(std::find(after.begin(), after.end(), true), after.end(), true);
  return after;
}

Ends after_number(const Ends &before, std::string_view text, bool is_signed) {
  Ends after(before.size(), false);
  bool can_end = false;  // whether a number can end before `at`
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool is_digit = text[at] >= '0' && text[at] <= '9';
    const bool has_sign = is_signed && at > 0 && text[at - 1] == '-' && before[at - 1];
    can_end = is_digit && (before[at] || has_sign || can_end);
    after[at + 1] = can_end;
  }
  return after;
}

Ends after_conversion(const Ends &before, std::string_view text, char conversion) {
  return conversion == 's' ? after_name(before) : after_number(before, text, conversion == 'd');
}

}  // namespace

bool is_made_by(std::string_view format, std::string_view text) {
  if (!has_literal_ends(format, text)) return false;  // cheap, and enough for nearly every message of another rule
  Ends ends(text.size() + 1, false);
  ends[0] = true;
  for (std::size_t at = 0; at < format.size();) {
    const std::size_t conversion = next_conversion(format, at);
    ends = after_literal(ends, text, format.substr(at, conversion - at));
    if (conversion < format.size()) ends = after_conversion(ends, text, format[conversion + 1]);
    at = conversion + 2;
  }
  return ends.back();
}

std::size_t literal_length(std::string_view format) {
  std::size_t length = format.size();
  for (std::size_t at = 0; at < format.size(); ++at) {
    if (is_conversion(format, at)) length -= 2;
  }
  return length;
}

}  // namespace rules
