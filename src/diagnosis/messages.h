#ifndef DIAGNOSIS_MESSAGES_H
#define DIAGNOSIS_MESSAGES_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "diagnosis/entries.h"
#include "host/run/commit.h"
#include "rules/rule.h"

namespace diagnosis {

/// A message of the library, wherever its point fired.
struct Message {
  host::PointVerdict verdict;         ///< as it was given first; a limit's as it counted most
  const rules::Rule *rule = nullptr;  ///< null where the rule table does not know it

  /// Empty where the rule table does not know it.
  std::string rule_id() const { return rule == nullptr ? "" : rule->id; }

  /// A limit.
  bool counts() const { return rule != nullptr && rule->counts; }

  /// The more entries take part, the more it tells: their number, or the list of them.
  bool is_cumulative() const;
};

/// What the device says: its first rejection, which ends the commit, and then the warnings before it.
std::vector<Message> device_messages(const host::Verdict &verdict);

/// The messages of a search, each with a number. Two answers are the same message when point, severity and text are; a
/// limit's when the rule is and the names in it are, whatever the numbers; one that lists interfaces whatever these
/// are.
class Messages {
 public:
  const Message &operator[](std::uint32_t number) const { return messages_[number]; }

  /// The number of an answer that is no acceptance.
  std::uint32_t number_of(const host::PointVerdict &answer);

  /// The numbers of what a verdict says.
  NumberSet numbers_of(const host::Verdict &verdict);

 private:
  std::vector<Message> messages_;
  std::map<std::string, std::uint32_t> numbers_;
};

}  // namespace diagnosis

#endif
