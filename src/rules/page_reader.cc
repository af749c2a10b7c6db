#include "rules/page_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <map>

namespace rules {
namespace {

/// A page line by line.
class Lines {
 public:
  Lines(std::string_view id, std::string_view text) : id_(id), rest_(text) { advance(); }

  bool at_end() const { return at_end_; }
  std::string_view line() const { return line_; }
  std::size_t number() const { return number_; }

  void advance() {
    ++number_;
    at_end_ = rest_.empty();
    line_ = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(std::min(rest_.size(), line_.size() + 1));
  }

  void skip_blank_lines() {
    while (!at_end_ && line_.empty()) advance();
  }

  void expect(std::string_view line) {
    if (at_end_ || line_ != line) fail(fmt::format("'{}'", line));
    advance();
  }

  [[noreturn]] void fail(std::string_view expected) const { fail(number_, expected); }
  [[noreturn]] void fail(std::size_t number, std::string_view expected) const {
    throw PageError(fmt::format("docs/rules/{}.md:{}: expected {}", id_, number, expected));
  }

 private:
  std::string_view id_;
  std::string_view rest_;
  std::string_view line_;
  std::size_t number_ = 0;
  bool at_end_ = false;
};

struct Field {
  std::string_view value;
  std::size_t line = 0;
};

/// The fields of a page's header. Each is taken once; what is left at the end is unknown.
class Header {
 public:
  explicit Header(Lines &lines) : lines_(lines) {
    lines.expect("---");
    for (; !lines.at_end() && lines.line() != "---"; lines.advance()) add_field();
    end_ = lines.number();
    lines.expect("---");
  }

  bool has(std::string_view name) const { return fields_.count(name) != 0; }

  std::string_view take(std::string_view name) {
    const auto node = fields_.extract(name);
    if (node.empty()) lines_.fail(end_, fmt::format("a field '{}' before this line", name));
    last_ = node.mapped();
    return last_.value;
  }

  void expect_empty() const {
    if (!fields_.empty()) lines_.fail(fields_.begin()->second.line, "no field of this name");
  }

  /// `expected` says what the field taken last should have been.
  [[noreturn]] void fail(std::string_view expected) const { lines_.fail(last_.line, expected); }

 private:
  void add_field() {
    const std::string_view line = lines_.line();
    const std::size_t colon = line.find(": ");
    if (colon == line.npos || colon + 2 == line.size()) lines_.fail("'FIELD: VALUE' or '---'");
    const Field field{line.substr(colon + 2), lines_.number()};
    if (!fields_.emplace(line.substr(0, colon), field).second) lines_.fail("a field that the header does not have yet");
  }

  Lines &lines_;
  std::map<std::string_view, Field> fields_;
  Field last_;
  std::size_t end_ = 0;
};

int take_order(Header &header) {
  const std::string_view text = header.take("order");
  int order = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), order);
  if (error != std::errc() || end != text.data() + text.size() || order <= 0) header.fail("a number above 0");
  return order;
}

std::string take_word(Header &header, std::string_view name) {
  const std::string_view text = header.take(name);
  if (text.find_first_of(" \"[],") != text.npos) header.fail("a word without blanks or quotes");
  return std::string(text);
}

Severity take_severity(Header &header) {
  const std::string_view text = header.take("severity");
  if (text != "rejection" && text != "warning") header.fail("'rejection' or 'warning'");
  return text == "warning" ? Severity::warning : Severity::rejection;
}

std::string take_message(Header &header) {
  const std::string_view text = header.take("message");
  const bool is_quoted = text.size() > 2 && text.front() == '"' && text.back() == '"';
  const std::string_view message = is_quoted ? text.substr(1, text.size() - 2) : "";
  if (message.empty() || message.find_first_of("\"\\") != message.npos) {
    header.fail("a text in double quotes, without a double quote or a backslash in it");
  }
  return std::string(message);
}

bool take_flag(Header &header, std::string_view name) {
  if (!header.has(name)) return false;
  if (header.take(name) != "true") header.fail("'true', or no such field");
  return true;
}

Resource take_resource(Header &header) {
  if (!header.has("resource")) return Resource::named;
  const std::string_view text = header.take("resource");
  if (text == "vlan") return Resource::vlan;
  if (text == "port") return Resource::port;
  if (text == "pseudowire") return Resource::pseudowire;
  header.fail("'vlan', 'port' or 'pseudowire', or no such field");
}

Scope take_scope(Header &header) {
  if (!header.has("scope")) return Scope::neighbors;
  if (header.take("scope") != "configuration") header.fail("'configuration', or no such field");
  return Scope::configuration;
}

std::vector<std::string> take_examples(Header &header) {
  constexpr std::string_view kForm = "'[FOLDER, FOLDER]' or '[]'";
  std::string_view text = header.take("examples");
  if (text.size() < 2 || text.front() != '[' || text.back() != ']') header.fail(kForm);
  text = text.substr(1, text.size() - 2);

  std::vector<std::string> examples;
  while (!text.empty()) {
    const std::string_view name = text.substr(0, text.find(", "));
    if (name.empty() || name.find_first_of(" ,[]\"") != name.npos) header.fail(kForm);
    examples.emplace_back(name);
    text.remove_prefix(std::min(text.size(), name.size() + 2));
  }
  return examples;
}

std::string read_part(Lines &lines, std::string_view heading) {
  lines.skip_blank_lines();
  lines.expect(fmt::format("## {}", heading));
  lines.skip_blank_lines();
  std::string prose;
  for (; !lines.at_end() && !lines.line().empty() && !lines.line().starts_with('#'); lines.advance()) {
    if (!prose.empty()) prose += ' ';
    prose += lines.line();
  }
  if (prose.empty()) lines.fail("a paragraph");
  return prose;
}

}  // namespace

Rule read_page(std::string_view id, std::string_view text) {
  Lines lines(id, text);
  Header header(lines);
  Rule rule;
  rule.id = id;
  rule.order = take_order(header);
  rule.point = take_word(header, "point");
  rule.severity = take_severity(header);
  rule.message = take_message(header);
  rule.counts = take_flag(header, "counts");
  rule.lists = take_flag(header, "lists");
  rule.resource = take_resource(header);
  rule.scope = take_scope(header);
  rule.source = take_word(header, "source");
  rule.examples = take_examples(header);
  header.expect_empty();

  rule.provokes = read_part(lines, "What provokes it");
  rule.why = read_part(lines, heading_of_why(rule.severity));
  rule.remedy = read_part(lines, "What to do");
  lines.skip_blank_lines();
  if (!lines.at_end()) lines.fail("the end of the page");
  return rule;
}

}  // namespace rules
