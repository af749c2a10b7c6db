#include <algorithm>
#include <iterator>

#include "rules/rule.h"
#include "rules/rule_rows.h"

namespace rules {
namespace {

std::vector<Rule> table() {
  std::vector<Rule> rows;
  for (const auto rows_of_group : {rules_of_vpns, rules_of_pseudowires, rules_of_access, rules_of_access_limits,
                                   rules_of_access_warnings, rules_of_interface_kinds, rules_of_vlan_members}) {
    const std::vector<Rule> group = rows_of_group();
    rows.insert(rows.end(), group.begin(), group.end());
  }
  return rows;
}

}  // namespace

const std::vector<Rule> &all_rules() {
  static const std::vector<Rule> rows = table();
  return rows;
}

const Rule *find_rule(std::string_view id) {
  const auto row =
      std::find_if(all_rules().begin(), all_rules().end(), [id](const Rule &rule) { return rule.id == id; });
  return row == all_rules().end() ? nullptr : &*row;
}

}  // namespace rules
