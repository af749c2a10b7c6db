#include "element/input/netconf_wrapper.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "element/input/input_error.h"
#include "element/input/input_text.h"

namespace element {
namespace {

constexpr std::string_view kXmlSpace = " \t\r\n";
constexpr std::string_view kNetconfBase = "urn:ietf:params:xml:ns:netconf:base:1.0";

struct StartTag {
  std::string_view name;  ///< with its prefix, if any
  std::string_view name_space;
  std::size_t end = 0;  ///< one past '>'
  bool is_empty = false;
};

std::size_t skip_blanks(std::string_view text, std::size_t position) {
  return std::min(text.find_first_not_of(kXmlSpace, position), text.size());
}

/// Takes the next attribute ("name = 'value'") off the front of `text`.
std::optional<std::pair<std::string_view, std::string_view>> take_attribute(std::string_view &text) {
  const std::size_t equals = text.find_first_of("=<>");
  if (equals == std::string_view::npos || text[equals] != '=') return std::nullopt;
  const std::string_view name = text.substr(0, text.find_first_of("= \t\r\n"));
  const std::size_t open = skip_blanks(text, equals + 1);
  if (open == text.size() || (text[open] != '"' && text[open] != '\'')) return std::nullopt;
  const std::size_t close = text.find(text[open], open + 1);
  if (close == std::string_view::npos) return std::nullopt;
  const std::string_view value = text.substr(open + 1, close - open - 1);
  text.remove_prefix(skip_blanks(text, close + 1));
  return std::pair(name, value);
}

std::optional<StartTag> start_tag(std::string_view xml, std::size_t position) {
  std::string_view rest = xml.substr(position);
  if (!rest.starts_with('<')) return std::nullopt;
  StartTag tag;
  tag.name = rest.substr(1, std::min(rest.find_first_of(" \t\r\n/>"), rest.size()) - 1);
  rest.remove_prefix(skip_blanks(rest, tag.name.size() + 1));
  const std::size_t colon = tag.name.find(':');
  const std::string declaration =
      colon == std::string_view::npos ? "xmlns" : "xmlns:" + std::string(tag.name.substr(0, colon));
  while (!rest.starts_with('>') && !rest.starts_with("/>")) {
    const auto attribute = take_attribute(rest);
    if (!attribute) return std::nullopt;
    if (attribute->first == declaration) tag.name_space = attribute->second;
  }
  tag.is_empty = rest.starts_with('/');
  tag.end = xml.size() - rest.size() + (tag.is_empty ? 2 : 1);
  return tag;
}

bool is_wrapper(const StartTag &tag) {
  const std::string_view local_name = tag.name.substr(tag.name.find(':') + 1);
  return tag.name_space == kNetconfBase && (local_name == "config" || local_name == "data");
}

/// Where the text's last element ends: before blanks, comments and processing instructions.
std::size_t last_element_end(std::string_view xml) {
  while (!xml.empty()) {
    xml = xml.substr(0, xml.find_last_not_of(kXmlSpace) + 1);
    const std::size_t begin = xml.ends_with("-->")  ? xml.rfind("<!--")
                              : xml.ends_with("?>") ? xml.rfind("<?")
                                                    : std::string_view::npos;
    if (begin == std::string_view::npos) break;
    xml = xml.substr(0, begin);
  }
  return xml.size();
}

/// Where the end tag of this name begins when it is the last thing before `end`.
std::optional<std::size_t> last_end_tag(std::string_view xml, std::size_t end, std::string_view name) {
  const std::string_view before = xml.substr(0, end);
  const std::size_t begin = before.rfind("</");
  if (begin == std::string_view::npos || before.substr(begin + 2, name.size()) != name) return std::nullopt;
  return skip_blanks(before, begin + 2 + name.size()) == end - 1 && before.back() == '>' ? std::optional(begin)
                                                                                         : std::nullopt;
}

void blank(std::string &text, std::size_t begin, std::size_t end) {
  for (std::size_t i = begin; i < end; ++i) {
    if (text[i] != '\n') text[i] = ' ';
  }
}

}  // namespace

std::size_t first_element(std::string_view xml) {
  std::size_t position = skip_blanks(xml, 0);
  while (position < xml.size()) {
    const std::string_view rest = xml.substr(position);
    const std::string_view close = rest.starts_with("<!--") ? "-->" : rest.starts_with("<?") ? "?>" : "";
    if (close.empty()) break;
    const std::size_t end = xml.find(close, position + 2);
    if (end == std::string_view::npos) break;
    position = skip_blanks(xml, end + close.size());
  }
  return position;
}

void blank_netconf_wrapper(std::string &xml, const std::string &origin) {
  const std::size_t begin = first_element(xml);
  const std::optional<StartTag> tag = start_tag(xml, begin);
  if (!tag || !is_wrapper(*tag)) return;

  const std::size_t end = last_element_end(xml);
  const std::optional<std::size_t> end_tag = tag->is_empty ? tag->end : last_end_tag(xml, end, tag->name);
  if (!end_tag || (tag->is_empty && end != tag->end)) {
    throw InputError(fmt::format("{}:{}: element {} is not the only one of the file; expected it around all others",
                                 origin, position_at(xml, begin).line, one_line(tag->name)));
  }
  blank(xml, *end_tag, end);
  blank(xml, begin, tag->end);
}

}  // namespace element
