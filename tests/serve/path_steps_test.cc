#include "agent/core/path_steps.h"

#include <gtest/gtest.h>

namespace {

using agent::path_steps;
using Steps = std::vector<agent::PathStep>;

TEST(PathSteps, are_names_with_keys) {
  EXPECT_EQ(path_steps("/mpls/group{metro}/vpn{a 7}/dot1q"),
            (Steps{{"mpls", {}}, {"group", {"metro"}}, {"vpn", {"a", "7"}}, {"dot1q", {}}}));
}

TEST(PathSteps, keys_in_quotes_are_taken_out_of_them) {
  EXPECT_EQ(path_steps(R"(/a{"x y"}/b{"}" "/"}/c{"\"\\"}/d{""}/e{1/2})"),
            (Steps{{"a", {"x y"}}, {"b", {"}", "/"}}, {"c", {"\"\\"}}, {"d", {""}}, {"e", {"1/2"}}}));
}

TEST(PathSteps, of_what_is_no_path_are_none) {
  EXPECT_EQ(path_steps(""), Steps{});
  EXPECT_EQ(path_steps("mpls"), Steps{});
}

TEST(PathSteps, of_a_path_that_is_cut_are_what_is_there) {
  EXPECT_EQ(path_steps("/a{x"), (Steps{{"a", {"x"}}}));
  EXPECT_EQ(path_steps("/a{\"x\\"), (Steps{{"a", {"x\\"}}}));
}

}  // namespace
