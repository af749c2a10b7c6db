#include "report/escape/printable.h"

#include <fmt/format.h>

namespace report {
namespace {

bool is_control(unsigned char c) { return c < 0x20 || c == 0x7f; }

/// U+0080 to U+009F in UTF-8, which terminals obey as they obey escape sequences.
bool is_second_control_set(std::string_view rest) {
  return rest.size() > 1 && rest[0] == '\xc2' && static_cast<unsigned char>(rest[1]) < 0xa0;
}

}  // namespace

std::string printable(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '\n') {
      result += "\\n";
    } else if (is_control(c)) {
      result += fmt::format("\\x{:02x}", c);
    } else if (is_second_control_set(text.substr(i))) {
      result += fmt::format("\\x{:02x}", static_cast<unsigned char>(text[++i]));
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace report
