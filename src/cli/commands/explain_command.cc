#include "cli/commands/explain_command.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "cli/command_line/errors.h"
#include "cli/command_line/near_names.h"
#include "cli/terminal/wrapped_stream.h"
#include "report/text/rule_page.h"
#include "rules/rule.h"

namespace cli {
namespace {

using rules::Rule;

std::vector<const Rule *> find_rules(std::string_view id_or_message) {
  if (const Rule *rule = rules::find_rule(id_or_message)) return {rule};
  std::vector<const Rule *> found;
  for (const Rule &rule : rules::all_rules()) {
    if (rules::rule_of_message(rule.point, id_or_message) == &rule) found.push_back(&rule);
  }
  return found;
}

std::vector<const Rule *> rules_of_point(std::string_view point) {
  std::vector<const Rule *> found;
  for (const Rule &rule : rules::all_rules()) {
    if (rule.point == point) found.push_back(&rule);
  }
  return found;
}

std::string in_lower_case(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

/// Rules whose page has all the words, in any order and case.
std::vector<const Rule *> rules_with_words(const std::vector<std::string> &words) {
  std::vector<const Rule *> found;
  for (const Rule &rule : rules::all_rules()) {
    const std::string page = in_lower_case(
        fmt::format("{} {} {} {} {} {}", rule.id, rule.point, rule.message, rule.provokes, rule.why, rule.remedy));
    const bool has_all = std::all_of(words.begin(), words.end(), [&page](const std::string &word) {
      return page.find(in_lower_case(word)) != std::string::npos;
    });
    if (has_all) found.push_back(&rule);
  }
  return found;
}

std::vector<std::string> words_of(const std::string &text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

[[noreturn]] void refuse(const std::string &wanted) {
  std::vector<std::string> ids;
  for (const Rule &rule : rules::all_rules()) ids.push_back(rule.id);
  throw UsageError(
      fmt::format("there is no rule \"{}\"{} (vpnval explain lists all)", wanted, did_you_mean(wanted, ids)));
}

/// What the arguments ask for.
struct Wanted {
  std::vector<const Rule *> rules;
  bool as_pages = true;  ///< else a line each
};

/// Each argument is an id or a message, or all of them together a message, a validation point, or words of pages.
Wanted find(const std::vector<std::string> &arguments) {
  std::vector<const Rule *> each;
  bool is_each_known = true;
  for (const std::string &argument : arguments) {
    const std::vector<const Rule *> found = find_rules(argument);
    is_each_known = is_each_known && !found.empty();
    each.insert(each.end(), found.begin(), found.end());
  }
  if (is_each_known) return {each};
  const std::string together = fmt::format("{}", fmt::join(arguments, " "));
  if (auto found = find_rules(together); !found.empty()) return {std::move(found)};
  if (auto found = rules_of_point(together); !found.empty()) return {std::move(found), false};
  auto found = rules_with_words(words_of(together));
  if (found.empty()) refuse(together);
  const bool is_one = found.size() == 1;
  return {std::move(found), is_one};
}

}  // namespace

ExitStatus explain(const ExplainArguments &arguments, const Environment &environment) {
  const bool is_markdown = arguments.format == PageFormat::markdown;
  WrappedStream out(environment.out, is_markdown ? 0 : environment.columns);
  if (arguments.rules.empty()) {
    out << (is_markdown ? report::markdown_index() : report::text_index());
    return ExitStatus::accepted;
  }

  const Wanted wanted = find(arguments.rules);
  if (!wanted.as_pages) {
    out << (is_markdown ? report::markdown_index(wanted.rules) : report::text_index(wanted.rules));
    return ExitStatus::accepted;
  }
  for (const Rule *rule : wanted.rules) {
    if (rule != wanted.rules.front()) out << '\n';
    out << (is_markdown ? report::markdown_page(*rule) : report::text_page(*rule));
  }
  return ExitStatus::accepted;
}

}  // namespace cli
