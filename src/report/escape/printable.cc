#include "report/escape/printable.h"

#include "element/input/utf8.h"

namespace report {

std::string printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = element::take_character(text);
    if (character == U'\n') {
      result += "\\n";
    } else if (element::steers_terminal(character)) {
      result += element::escape_of(character);
    } else {
      result += before.substr(0, before.size() - text.size());
    }
  }
  return result;
}

}  // namespace report
