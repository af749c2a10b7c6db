#include "report/text/rule_page.h"

#include <fmt/format.h>

#include <algorithm>

namespace report {
namespace {

using rules::Rule;
using rules::Severity;

constexpr std::size_t kColumns = 80;
constexpr std::string_view kIndent = "  ";

std::string_view kind_of(const Rule &rule) { return rule.severity == Severity::warning ? "Warning" : "Rejection"; }

std::string wrapped(std::string_view prose) {
  std::string text;
  std::size_t column = 0;
  while (!prose.empty()) {
    const std::string_view word = prose.substr(0, prose.find(' '));
    prose.remove_prefix(std::min(prose.size(), word.size() + 1));
    const bool fits = column > 0 && column + 1 + word.size() <= kColumns;
    if (column > 0 && !fits) text += '\n';
    text += fits ? " " : kIndent;
    text += word;
    column = (fits ? column + 1 : kIndent.size()) + word.size();
  }
  return text + '\n';
}

std::string text_examples(const Rule &rule) {
  if (rule.examples.empty()) return fmt::format("{}none\n", kIndent);
  std::string text;
  for (const std::string_view example : rule.examples) text += fmt::format("{}examples/{}\n", kIndent, example);
  return text;
}

std::string example_link(std::string_view example) { return fmt::format("[{0}](../../examples/{0})", example); }

std::string source_link(const Rule &rule) { return fmt::format("[`{0}`](../../src/lib/{0})", rule.source); }

std::string markdown_examples(const Rule &rule) {
  if (rule.examples.empty()) return "None.\n";
  std::string text;
  for (const std::string_view example : rule.examples) text += fmt::format("- {}\n", example_link(example));
  return text;
}

std::string_view first_sentence(std::string_view prose) { return prose.substr(0, prose.find(". ")); }

std::string index_row(const Rule &rule) {
  std::string examples;
  for (const std::string_view example : rule.examples) {
    examples += (examples.empty() ? "" : ", ") + example_link(example);
  }
  const std::string_view provokes = first_sentence(rule.provokes);
  return fmt::format("| [{0}]({0}.md) | {1}`{2}` | {3}{4} | `{5}` | {6} |\n", rule.id,
                     rule.severity == Severity::warning ? "Warning: " : "", rule.message, provokes,
                     provokes.ends_with('.') ? "" : ".", rule.source, examples.empty() ? "none" : examples);
}

constexpr std::string_view kIndexHead =
    "# Messages\n\n"
    "Every message of the plug-in: its id, what provokes it, where its rule stands, which example shows it. An id's page "
    "tells more, as `vpnval explain ID` does in a terminal.\n\n"
    "`%s`, `%d` and `%u` stand for what the message names. VPNs are named in prefixed form: `vpls-group campus vpn "
    "data`. A message is a rejection unless its row says Warning.\n";

std::vector<const Rule *> every_rule() {
  std::vector<const Rule *> rules;
  for (const Rule &rule : rules::all_rules()) rules.push_back(&rule);
  return rules;
}

}  // namespace

std::string text_page(const Rule &rule) {
  return fmt::format(
      "{}\n\n{}{}\n\n"
      "{} by {}\n\n"
      "What provokes it\n{}\n{}\n{}\nWhat to do\n{}\nExamples\n{}\nRule\n{}src/lib/{}\n",
      rule.id, kIndent, rule.message, kind_of(rule), rule.point, wrapped(rule.provokes),
      rules::heading_of_why(rule.severity), wrapped(rule.why), wrapped(rule.remedy), text_examples(rule), kIndent,
      rule.source);
}

std::string markdown_page(const Rule &rule) {
  return fmt::format(
      "# {}\n\n    {}\n\n"
      "{} by `{}`.\n\n"
      "## What provokes it\n\n{}\n\n## {}\n\n{}\n\n## What to do\n\n{}\n\n## Examples\n\n{}\n## Rule\n\n{}\n",
      rule.id, rule.message, kind_of(rule), rule.point, rule.provokes, rules::heading_of_why(rule.severity), rule.why,
      rule.remedy, markdown_examples(rule), source_link(rule));
}

std::string text_index(const std::vector<const Rule *> &rules) {
  std::size_t width = 0;
  for (const Rule *rule : rules) width = std::max(width, rule->id.size());

  std::string text;
  for (const Rule *rule : rules) {
    text += fmt::format("{:{}}  {}{}\n", rule->id, width, rule->severity == Severity::warning ? "warning: " : "",
                        rule->message);
  }
  return text;
}

std::string text_index() { return text_index(every_rule()); }

std::string markdown_index() { return markdown_index(every_rule()); }

std::string markdown_index(const std::vector<const Rule *> &rules) {
  std::string text{kIndexHead};
  std::string_view point;
  for (const Rule *listed : rules) {
    const Rule &rule = *listed;
    if (rule.point != point) {
      text += fmt::format(
          "\n## `{}`\n\n| Id | Message | What provokes it | Rule in `src/lib` | Examples |\n|---|---|---|---|---|\n",
          rule.point);
    }
    point = rule.point;
    text += index_row(rule);
  }
  return text;
}

}  // namespace report
