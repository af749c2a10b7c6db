#ifndef RULES_RULE_H
#define RULES_RULE_H

#include <string_view>
#include <vector>

namespace rules {

enum class Severity { rejection, warning };

/// What is known of a message of the validation library: its name for machines and its page for people.
struct Rule {
  std::string_view id;     ///< stable: lower case and hyphens, never given to another message
  std::string_view point;  ///< the validation point that says it
  Severity severity = Severity::rejection;
  std::string_view message;   ///< with %s, %d and %u for what it names
  bool counts = false;        ///< a limit: the message tells how many were configured and how many are allowed
  std::string_view source;    ///< file below src/lib where the rule stands
  std::string_view provokes;  ///< what provokes it
  std::string_view why;       ///< why the element refuses it, or what its warning means
  std::string_view remedy;    ///< what to do
  std::vector<std::string_view> examples;  ///< folders below examples/
};

/// Every rule, in the order of the validation points and of their messages.
const std::vector<Rule> &all_rules();

/// The rule of this id, or null.
const Rule *find_rule(std::string_view id);

/// The rule whose message `text` is, as this point says it, or null. Names that the library cut short are no obstacle.
const Rule *rule_of_message(std::string_view point, std::string_view text);

}  // namespace rules

#endif
