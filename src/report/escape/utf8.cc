#include "report/escape/utf8.h"

#include "element/input/input_text.h"

namespace report {

std::string valid_utf8(std::string_view text) {
  std::string result;
  while (const auto wrong = element::find_not_utf8(text)) {
    result += text.substr(0, *wrong);
    result += "\xef\xbf\xbd";
    text.remove_prefix(*wrong + 1);
  }
  return result.append(text);
}

}  // namespace report
