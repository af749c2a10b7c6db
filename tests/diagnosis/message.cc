#include "tests/diagnosis/message.h"

#include "rules/rule.h"

namespace brute_force {

Message message_of(const host::PointVerdict &answer) {
  const rules::Rule *rule = rules::rule_of_message(answer.point, answer.text);
  Message message{answer.point, answer.answer, answer.text, rule == nullptr ? "no rule" : std::string(rule->id)};
  if (is_of_counting_rule(message)) message.text.resize(message.text.rfind("Attempt to configure"));
  if (is_of_listing_rule(message)) message.text.erase(0, message.text.find("will run as TLS"));
  return message;
}

bool is_of_listing_rule(const Message &message) { return message.rule == "tls-port-based-vpls"; }

bool is_of_counting_rule(const Message &message) {
  const rules::Rule *rule = rules::find_rule(message.rule);
  return rule != nullptr && rule->counts;
}

}  // namespace brute_force
