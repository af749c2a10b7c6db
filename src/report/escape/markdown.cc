#include "report/escape/markdown.h"

#include <fmt/format.h>

#include <cctype>

#include "element/input/utf8.h"
#include "report/escape/printable.h"

namespace report {
namespace {

/// Punctuation that has no meaning within a line. A colon would make a link of an address, an at sign a mention.
constexpr std::string_view kPlainInMarkdown = " -,./;'\"()%$^?+=";

bool is_plain_in_markdown(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code >= 0x80 || std::isalnum(code) != 0 || kPlainInMarkdown.find(c) != std::string_view::npos;
}

}  // namespace

// A character reference marks nothing up, in whichever flavour of Markdown.
std::string to_markdown(std::string_view text) {
  std::string result;
  for (const char c : printable(element::replace_invalid_utf8(text))) {
    if (is_plain_in_markdown(c)) {
      result += c;
    } else {
      result += fmt::format("&#{};", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
  }
  return result;
}

}  // namespace report
