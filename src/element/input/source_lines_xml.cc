// libyang takes more for XML than the standard allows: comments with "--", a declaration or an empty instruction
// anywhere, "]]>" in a text, '<' in an attribute; and it keeps carriage returns. A parser of the standard would refuse
// such a file or read other keys out of it. What libyang has accepted is easily read.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

#include "element/input/input_text.h"
#include "element/input/source_tree.h"
#include "element/input/utf8.h"

namespace element {
namespace {

constexpr std::array<std::pair<std::string_view, char>, 5> kEntities{
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};

/// What a reference without its '&' and ';' stands for.
std::string referenced(std::string_view reference) {
  for (const auto &[name, character] : kEntities) {
    if (reference == name) return {character};
  }
  const bool is_hexadecimal = reference.starts_with("#x");
  reference.remove_prefix(std::min<std::size_t>(is_hexadecimal ? 2 : 1, reference.size()));
  std::uint32_t code = 0;
  std::from_chars(reference.data(), reference.data() + reference.size(), code, is_hexadecimal ? 16 : 10);
  return to_utf8(code);
}

class XmlLineReader {
 public:
  explicit XmlLineReader(std::string_view text) : text_(text), lines_(text) {}

  SourceTree read() {
    while (position_ < text_.size()) read_next();
    return std::move(tree_);
  }

 private:
  void read_next() {
    if (take("<!--")) {
      take_until("-->");
    } else if (take("<?")) {
      take_until("?>");
    } else if (take("<![CDATA[")) {
      tree_.add_text(take_until("]]>"));
    } else if (take("</")) {
      take_until(">");
      tree_.close();
    } else if (text_[position_] == '<') {
      take_start_tag();
    } else {
      take_text();
    }
  }

  void take_start_tag() {
    const std::size_t line = lines_.line_at(position_);
    const std::size_t name_end = text_.find_first_of(" \t\r\n/>", ++position_);
    tree_.open(take_to(name_end), line);
    std::size_t end = position_;
    while (end < text_.size() && text_[end] != '>') end = past_attribute_text(end);
    const bool is_empty = take_to(end).ends_with('/');
    take(">");
    if (is_empty) tree_.close();
  }

  /// One past the character, or past the value where it opens one.
  std::size_t past_attribute_text(std::size_t place) const {
    const char c = text_[place];
    if (c != '"' && c != '\'') return place + 1;
    return std::min(text_.find(c, place + 1), text_.size() - 1) + 1;
  }

  void take_text() {
    std::string_view text = take_to(text_.find('<', position_));
    for (std::size_t begin = text.find('&'); begin != std::string_view::npos; begin = text.find('&')) {
      const std::size_t end = std::min(text.find(';', begin), text.size() - 1);
      tree_.add_text(text.substr(0, begin));
      tree_.add_text(referenced(text.substr(begin + 1, end - begin - 1)));
      text.remove_prefix(end + 1);
    }
    tree_.add_text(text);
  }

  bool take(std::string_view token) {
    if (!text_.substr(position_).starts_with(token)) return false;
    position_ += token.size();
    return true;
  }

  /// Takes what stands before `token`, and the token.
  std::string_view take_until(std::string_view token) {
    const std::string_view before = take_to(text_.find(token, position_));
    take(token);
    return before;
  }

  std::string_view take_to(std::size_t end) {
    const std::size_t begin = std::exchange(position_, std::min(end, text_.size()));
    return text_.substr(begin, position_ - begin);
  }

  std::string_view text_;
  std::size_t position_ = 0;
  LineCounter lines_;
  SourceTree tree_;
};

}  // namespace

SourceTree read_xml_source(std::string_view text) { return XmlLineReader(text).read(); }

}  // namespace element
