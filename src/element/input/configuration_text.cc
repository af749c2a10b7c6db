#include "element/input/configuration_text.h"

#include <fmt/format.h>

#include <optional>
#include <string_view>
#include <utility>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/json_text.h"
#include "element/input/netconf_wrapper.h"
#include "element/input/utf8.h"

namespace element {
namespace {

[[noreturn]] void throw_at(const std::string &origin, std::string_view text, std::size_t offset,
                           const std::string &fault) {
  throw InputError(fmt::format("{}:{}: {}", origin, position_at(text, offset).line, fault));
}

// The parsers take a zero byte for the end of the text, and are at a loss for words about bytes that are not UTF-8.
void require_text(std::string_view text, const std::string &origin) {
  const std::size_t zero = text.find('\0');
  if (zero != std::string_view::npos) throw_at(origin, text, zero, "zero byte; expected text in UTF-8");
  const std::optional<std::size_t> wrong = find_invalid_utf8(text);
  if (wrong) throw_at(origin, text, *wrong, "byte " + one_line(text.substr(*wrong, 1)) + "; expected text in UTF-8");
}

InputFormat format_of(std::string_view text, const std::string &origin) {
  const std::size_t begin = text.find_first_not_of(kBlank);
  if (begin == std::string_view::npos) {
    throw InputError(
        fmt::format("{}: empty; expected XML elements or a JSON object ({{}} configures nothing)", origin));
  }
  if (text[begin] == '<') return InputFormat::xml;
  if (text[begin] == '{') return InputFormat::json;
  throw_at(origin, text, begin,
           fmt::format("neither XML nor JSON begins with {}; expected '<' or '{{'", one_line(text.substr(begin, 1))));
}

void prepare_xml(std::string &text, const std::string &origin) {
  if (first_element(text) == text.size()) {
    throw InputError(
        fmt::format("{}: no element; expected at least one, without content to configure nothing", origin));
  }
  blank_netconf_wrapper(text, origin);
}

}  // namespace

ConfigurationText prepare_configuration(std::string text, const std::string &origin) {
  if (text.starts_with(kByteOrderMark)) text.replace(0, kByteOrderMark.size(), kByteOrderMark.size(), ' ');
  require_text(text, origin);
  const InputFormat format = format_of(text, origin);
  if (format == InputFormat::xml) prepare_xml(text, origin);
  // The parser of libyang takes a text that breaks off, text after the object, and a list from several members.
  if (format == InputFormat::json) require_json(text, origin);
  return {std::move(text), format};
}

}  // namespace element
