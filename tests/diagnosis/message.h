#ifndef TESTS_DIAGNOSIS_MESSAGE_H
#define TESTS_DIAGNOSIS_MESSAGE_H

#include <compare>
#include <string>

#include "host/run/commit.h"

namespace brute_force {

/// What the library says. Of a rule that counts the text is without its numbers, of one that lists interfaces without
/// their list: what stands beside the conflict changes them.
struct Message {
  std::string point;
  host::Answer answer = host::Answer::accepted;
  std::string text;
  std::string rule;

  auto operator<=>(const Message &) const = default;
};

Message message_of(const host::PointVerdict &answer);
bool is_of_counting_rule(const Message &message);
bool is_of_listing_rule(const Message &message);

}  // namespace brute_force

#endif
