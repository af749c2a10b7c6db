#include "rules/message_pattern.h"
#include "rules/rule.h"

namespace rules {

// A name in a message can hold the words of another message. The format with the most literal text is the one that
// was meant, unless somebody chose names to mislead.
const Rule *rule_of_message(std::string_view point, std::string_view text) {
  const Rule *best = nullptr;
  for (const Rule &rule : all_rules()) {
    if (rule.point != point || !is_made_by(rule.message, text)) continue;
    if (best == nullptr || literal_length(rule.message) > literal_length(best->message)) best = &rule;
  }
  return best;
}

}  // namespace rules
