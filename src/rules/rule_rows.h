#ifndef RULES_RULE_ROWS_H
#define RULES_RULE_ROWS_H

#include <vector>

#include "rules/rule.h"

namespace rules {

// The rows of the rule table, a function for each group of messages. Their texts are prose that reads the same in a
// terminal and in Markdown: ASCII, without a character that either would take for a sign of its own.

std::vector<Rule> rules_of_vpns();
std::vector<Rule> rules_of_pseudowires();
std::vector<Rule> rules_of_access();
std::vector<Rule> rules_of_access_limits();
std::vector<Rule> rules_of_access_warnings();
std::vector<Rule> rules_of_interface_kinds();
std::vector<Rule> rules_of_vlan_members();

}  // namespace rules

#endif
