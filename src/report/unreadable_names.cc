#include "report/unreadable_names.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "report/escape/printable.h"
#include "rules/rule.h"

namespace report {
namespace {

UnreadableName &entry_of(std::vector<UnreadableName> &names, const std::string &name) {
  const auto found =
      std::find_if(names.begin(), names.end(), [&name](const auto &entry) { return entry.name == name; });
  if (found != names.end()) return *found;
  names.push_back({name, 0, {}, {}});
  return names.back();
}

// The path tells what was asked, not which of the point's rules needed the answer.
void add_rules(UnreadableName &unreadable) {
  const std::vector<std::string> &points = unreadable.points;
  for (const rules::Rule &rule : rules::all_rules()) {
    if (std::find(points.begin(), points.end(), rule.point) != points.end()) unreadable.rules.push_back(rule.id);
  }
}

std::string rules_text(const std::vector<std::string> &rules) {
  if (rules.empty()) return "rules";
  return fmt::format("{} {}", rules.size() == 1 ? "rule" : "rules", fmt::join(rules, ", "));
}

}  // namespace

std::vector<UnreadableName> unreadable_names(const std::vector<host::UnreadableQuestion> &questions) {
  std::vector<UnreadableName> names;
  for (const host::UnreadableQuestion &question : questions) {
    UnreadableName &entry = entry_of(names, question.name);
    ++entry.questions;
    std::vector<std::string> &points = entry.points;
    if (std::find(points.begin(), points.end(), question.point) == points.end()) points.push_back(question.point);
  }
  std::for_each(names.begin(), names.end(), add_rules);
  return names;
}

std::string to_text(const UnreadableName &unreadable) {
  return fmt::format("{} of the library could not be read because of the name `{}`: {} may not have looked at it",
                     unreadable.questions == 1 ? "1 question" : fmt::format("{} questions", unreadable.questions),
                     printable(unreadable.name), rules_text(unreadable.rules));
}

}  // namespace report
