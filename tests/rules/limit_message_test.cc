#include "rules/limit_message.h"

#include <gtest/gtest.h>

namespace {

using rules::parse_limit_message;

struct Case {
  std::string message;
  std::optional<std::int64_t> configured;
  std::int64_t allowed = 0;
};

TEST(LimitMessage, tells_what_is_configured_and_what_is_allowed) {
  const std::vector<Case> cases{
      {"Maximum number of VPNs has been exceeded. Attempt to configure 129 of 128 allowed", 129, 128},
      {"Attempt to configure 3 of -1 allowed", 3, -1},
      {"Attempt to configure 0 of -1 allowed", 0, -1},
      {"access-interface ge-1/2 of 7. Attempt to configure 9 of 8 allowed", 9, 8},
      {"9 of 8", 9, 8},
      {"vpls-group 17 vpn 4 access-interface service-port-3 : its bridge MTU lesser or equal than 2000.", {}, 2000},
      {"2000", {}, 2000},
  };
  for (const Case &test : cases) {
    const auto numbers = parse_limit_message(test.message);
    ASSERT_TRUE(numbers) << test.message;
    EXPECT_EQ(numbers->configured, test.configured) << test.message;
    EXPECT_EQ(numbers->allowed, test.allowed) << test.message;
  }
}

TEST(LimitMessage, without_a_number_tells_nothing) {
  EXPECT_FALSE(parse_limit_message("vpls-group a vpn b interface is not valid. Verify available interfaces"));
  EXPECT_FALSE(parse_limit_message(""));
}

}  // namespace
