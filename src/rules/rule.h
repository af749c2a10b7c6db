#ifndef RULES_RULE_H
#define RULES_RULE_H

#include <string>
#include <string_view>
#include <vector>

namespace rules {

enum class Severity { rejection, warning };

/// What the parties of a fault want of each other.
enum class Resource {
  named,      ///< what the message names
  vlan,       ///< a VLAN of a port
  port,       ///< a port
  pseudowire  ///< a pw-id towards a neighbour
};

/// Which entries decide whether there is a fault.
enum class Scope {
  neighbors,     ///< those that share a port, a VLAN, a VPN or a pseudowire
  configuration  ///< any
};

/// What the page docs/rules/ID.md says about one message of the plug-in.
struct Rule {
  std::string id;     ///< stable: lower case and hyphens, never given to another message
  int order = 0;      ///< its place among all rules: by validation point as they fire, then by rule as they run
  std::string point;  ///< the validation point that sets the message
  Severity severity = Severity::rejection;
  std::string message;  ///< the format: %s stands for a name, %d and %u for a number
  bool counts = false;  ///< a limit: the message says how many were configured and how many are allowed
  bool lists = false;   ///< the first %s is a list that grows with the faults
  Resource resource = Resource::named;
  Scope scope = Scope::neighbors;
  std::string source;                 ///< the file below src/lib that holds the message
  std::vector<std::string> examples;  ///< folders below examples/ whose commit draws the message
  std::string provokes;               ///< which commits draw the message; prose on one line, as are the next two
  std::string why;                    ///< why the element refuses such a commit, or what the warning means
  std::string remedy;                 ///< what the operator can do
};

/// All rules, by `order`. They live as long as the program. Throws PageError if a shipped page is malformed.
const std::vector<Rule> &all_rules();

/// The rule with this id, or null.
const Rule *find_rule(std::string_view id);

/// The rule whose message `text` is when `point` sets it, or null if no rule of that point has such a message. If
/// several formats match, the one with the longest literal text wins.
const Rule *rule_of_message(std::string_view point, std::string_view text);

/// The heading of the part `why` on a rule's page.
std::string_view heading_of_why(Severity severity);

}  // namespace rules

#endif
