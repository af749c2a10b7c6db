#include "rules/rule.h"

#include <algorithm>

#include "rules/page_reader.h"
#include "rules/shipped_pages.h"

namespace rules {
namespace {

std::vector<Rule> read_shipped_pages() {
  std::vector<Rule> rules;
  for (const ShippedPage &page : shipped_pages()) rules.push_back(read_page(page.id, page.text));
  std::sort(rules.begin(), rules.end(), [](const Rule &a, const Rule &b) { return a.order < b.order; });
  return rules;
}

}  // namespace

const std::vector<Rule> &all_rules() {
  static const std::vector<Rule> rules = read_shipped_pages();
  return rules;
}

const Rule *find_rule(std::string_view id) {
  const std::vector<Rule> &rules = all_rules();
  const auto rule = std::find_if(rules.begin(), rules.end(), [id](const Rule &other) { return other.id == id; });
  return rule == rules.end() ? nullptr : &*rule;
}

std::string_view heading_of_why(Severity severity) {
  return severity == Severity::warning ? "What it means" : "Why the element refuses it";
}

}  // namespace rules
