#include "rules/message_pattern.h"

#include <algorithm>
#include <vector>

namespace rules {
namespace {

/// The positions of a text, its end included, up to which a part of a format can have made it.
using Ends = std::vector<bool>;

bool is_conversion(std::string_view format, std::size_t at) {
  return format[at] == '%' && at + 1 < format.size() && std::string_view("sdu").find(format[at + 1]) != format.npos;
}

std::size_t next_conversion(std::string_view format, std::size_t at) {
  while (at < format.size() && !is_conversion(format, at)) ++at;
  return at;
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
  bool can_begin = false;  // a number that ends here may still grow, or begins here
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool is_digit = text[at] >= '0' && text[at] <= '9';
    const bool has_sign = is_signed && at > 0 && text[at - 1] == '-' && before[at - 1];
    can_begin = is_digit && (before[at] || has_sign || can_begin);
    after[at + 1] = can_begin;
  }
  return after;
}

Ends after_conversion(const Ends &before, std::string_view text, char conversion) {
  return conversion == 's' ? after_name(before) : after_number(before, text, conversion == 'd');
}

}  // namespace

bool is_made_by(std::string_view format, std::string_view text) {
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
