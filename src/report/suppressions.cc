#include "report/suppressions.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <optional>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "report/escape/printable.h"
#include "report/path_pattern.h"
#include "rules/rule.h"

namespace report {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view without_blanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Where the path at the front ends: at the first blank outside keys.
std::size_t end_of_path(std::string_view text) {
  bool in_keys = false;
  bool is_quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (!in_keys && kBlanks.find(c) != std::string_view::npos) return i;
    if (c == '"' && in_keys) is_quoted = !is_quoted;
    if (c == '\\' && is_quoted) ++i;
    if (c == '{') in_keys = true;
    if (c == '}' && !is_quoted) in_keys = false;
  }
  return text.size();
}

[[noreturn]] void refuse(const FilePlace &place, const std::string &fault) {
  throw element::InputError(
      fmt::format("{}: {}; expected RULE PATH [until YYYY-MM-DD] # REASON", to_text(place), fault));
}

constexpr std::string_view kUntil = "until";

/// "2026-12-31"; nothing for a text that is no date.
std::optional<std::chrono::sys_days> date_of(const std::string &text) {
  std::tm read{};
  const char *end = strptime(text.c_str(), "%Y-%m-%d", &read);
  if (text.size() != 10 || end == nullptr || *end != '\0') return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(read.tm_year + 1900),
                                         std::chrono::month(static_cast<unsigned>(read.tm_mon) + 1),
                                         std::chrono::day(static_cast<unsigned>(read.tm_mday))};
  if (!date.ok()) return std::nullopt;
  return std::chrono::sys_days(date);
}

std::string text_of(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                     static_cast<unsigned>(date.day()));
}

/// Takes "until DATE" from the front of what follows a path.
std::optional<std::chrono::sys_days> take_until(std::string_view &rest, const FilePlace &place) {
  const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
  if (word != kUntil) return std::nullopt;
  rest = without_blanks(rest.substr(word.size()));
  const std::string day(rest.substr(0, rest.find_first_of(kBlanks)));
  const auto until = date_of(day);
  if (!until) refuse(place, fmt::format("\"{}\" is no date", element::one_line(day)));
  rest = without_blanks(rest.substr(day.size()));
  return until;
}

/// Paths are compared as they are printed. The node under validation counts only where no parties are known: a point
/// that validates the whole configuration names one node for every fault that it sees.
bool leads_to(std::string_view pattern, const Finding &finding, std::size_t conflict) {
  if (finding.conflicts.empty()) return fits_pattern(printable(finding.path), pattern);
  const std::vector<std::size_t> &parties = finding.conflicts[conflict].parties;
  return std::any_of(parties.begin(), parties.end(), [&](std::size_t party) {
    return fits_pattern(printable(finding.parties[party].node.path), pattern);
  });
}

}  // namespace

Suppressions::Line Suppressions::parse_line(std::string_view text, const FilePlace &place) {
  const std::string_view rule = text.substr(0, text.find_first_of(kBlanks));
  const std::string_view rest = without_blanks(text.substr(rule.size()));
  const std::string_view path = rest.substr(0, end_of_path(rest));
  std::string_view comment = without_blanks(rest.substr(path.size()));
  if (rules::find_rule(rule) == nullptr) {
    refuse(place, fmt::format("there is no rule \"{}\"", element::one_line(rule)));
  }
  if (!path.starts_with('/')) refuse(place, fmt::format("\"{}\" is no path", element::one_line(path)));
  const auto until = take_until(comment, place);
  if (!comment.empty() && comment[0] != '#') {
    refuse(place, fmt::format("\"{}\" follows the path", element::one_line(comment)));
  }
  const std::string_view reason = comment.empty() ? comment : without_blanks(comment.substr(1));
  if (reason.empty()) refuse(place, "there is no reason");
  return {{place, std::string(reason)}, std::string(rule), std::string(path), until};
}

void Suppressions::parse(std::string_view text, const std::string &origin) {
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = without_blanks(text.substr(0, end));
    if (!line.empty() && line[0] != '#') lines_.push_back(parse_line(line, {origin, number}));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void Suppressions::read(const std::filesystem::path &file) { parse(element::read_input(file), file.string()); }

void Suppressions::apply(std::vector<Finding> &findings) {
  for (Finding &finding : findings) {
    std::vector<bool> is_known(std::max<std::size_t>(finding.conflicts.size(), 1));
    std::optional<Suppressed> first;
    for (Line &line : lines_) {
      if (line.rule != finding.rule || is_over(line)) continue;
      for (std::size_t conflict = 0; conflict < is_known.size(); ++conflict) {
        if (!leads_to(line.path, finding, conflict)) continue;
        is_known[conflict] = true;
        line.used = true;
        if (!first) first = line.suppressed;
      }
    }
    const bool is_all = std::find(is_known.begin(), is_known.end(), false) == is_known.end();
    const bool is_any = finding.enough != 0 && first;
    if (is_all || is_any) finding.suppressed = first;
  }
}

std::vector<std::string> Suppressions::unused() const {
  std::vector<std::string> texts;
  for (const Line &line : lines_) {
    if (line.used || is_over(line)) continue;
    texts.push_back(fmt::format("{}: {} {}", to_text(line.suppressed.by), line.rule, line.path));
  }
  return texts;
}

std::vector<std::string> Suppressions::expired() const {
  std::vector<std::string> texts;
  for (const Line &line : lines_) {
    if (!is_over(line)) continue;
    texts.push_back(
        fmt::format("{}: {} {}, until {}", to_text(line.suppressed.by), line.rule, line.path, text_of(*line.until)));
  }
  return texts;
}

}  // namespace report
