#include "cli/commands/explain_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "cli/command_line/errors.h"
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

/// How many characters must be typed, deleted or replaced to make one text of the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char character : from) {
    std::size_t diagonal = row[0]++;
    for (std::size_t at = 1; at < row.size(); ++at) {
      const std::size_t replaced = diagonal + (character == to[at - 1] ? 0 : 1);
      diagonal = row[at];
      row[at] = std::min({row[at] + 1, row[at - 1] + 1, replaced});
    }
  }
  return row.back();
}

bool is_near(std::string_view id, std::string_view wanted) {
  if (wanted.size() > 2 * id.size()) return false;
  return id.find(wanted) != id.npos || distance(wanted, id) <= 1 + id.size() / 5;
}

std::string near_ids(std::string_view wanted) {
  std::string text;
  for (const Rule &rule : rules::all_rules()) {
    if (is_near(rule.id, wanted)) text += fmt::format("{}{}", text.empty() ? "; near it: " : ", ", rule.id);
  }
  return text;
}

}  // namespace

ExitStatus explain(const ExplainArguments &arguments, const Environment &environment) {
  const bool is_markdown = arguments.format == PageFormat::markdown;
  if (arguments.rule.empty()) {
    environment.out << (is_markdown ? report::markdown_index() : report::text_index());
    return ExitStatus::accepted;
  }

  const std::vector<const Rule *> found = find_rules(arguments.rule);
  if (found.empty()) {
    throw UsageError(
        fmt::format("there is no rule \"{}\"{} (vpnval explain lists all)", arguments.rule, near_ids(arguments.rule)));
  }
  for (const Rule *rule : found) {
    if (rule != found.front()) environment.out << '\n';
    environment.out << (is_markdown ? report::markdown_page(*rule) : report::text_page(*rule));
  }
  return ExitStatus::accepted;
}

}  // namespace cli
