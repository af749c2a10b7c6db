#ifndef TESTS_SUPPORT_RULE_MESSAGE_H
#define TESTS_SUPPORT_RULE_MESSAGE_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "rules/rule.h"

/// The message of a rule about these parties, for tests that show which rule rejected; the test of the rule itself
/// spells its text out. A VPN, which a format has as "%s %s", is one party: "vpls-group north vpn red". Throws
/// std::invalid_argument if there is no such rule or its message names more or fewer parties.
inline std::string message_of(const std::string &rule_id, const std::vector<std::string> &parties) {
  const rules::Rule *rule = rules::find_rule(rule_id);
  if (rule == nullptr) throw std::invalid_argument("no rule " + rule_id);
  std::string message;
  std::size_t used = 0;
  for (std::string_view rest = rule->message; !rest.empty();) {
    if (rest.front() != '%') {
      message += rest.front();
      rest.remove_prefix(1);
      continue;
    }
    if (used == parties.size()) throw std::invalid_argument(rule_id + " names more parties");
    message += parties[used++];
    constexpr std::string_view vpn = "%s %s";
    rest.remove_prefix(rest.starts_with(vpn) ? vpn.size() : 2);
  }
  if (used != parties.size()) throw std::invalid_argument(rule_id + " names fewer parties");
  return message;
}

#endif
