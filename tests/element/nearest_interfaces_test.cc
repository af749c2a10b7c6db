#include "element/profile/nearest_interfaces.h"

#include <gtest/gtest.h>

namespace {

using element::nearest_interfaces;
using element::spelling_distance;

TEST(Spelling, counts_letters) {
  EXPECT_EQ(spelling_distance("eth1", "eth1"), 0U);
  EXPECT_EQ(spelling_distance("ETH1", "eth1"), 0U);
  EXPECT_EQ(spelling_distance("eth1", "eht1"), 1U);
  EXPECT_EQ(spelling_distance("eth1", "eth11"), 1U);
  EXPECT_EQ(spelling_distance("eth1", "et1"), 1U);
  EXPECT_EQ(spelling_distance("eth1", "ath2"), 2U);
  EXPECT_EQ(spelling_distance("", "abc"), 3U);
  EXPECT_EQ(spelling_distance("gigabit-ethernet-1/1/1", "gigabitethernet-1/1/1"), 1U);
}

TEST(Spelling, the_nearest_interfaces_alone_are_named) {
  const element::Profile profile({}, {{"gigabit-ethernet-1/1/1", 1, 1},
                                      {"gigabit-ethernet-1/1/2", 2, 2},
                                      {"ten-gigabit-ethernet-1/1/1", 3, 3},
                                      {"lag-1", 4, 4}});
  using Names = std::vector<std::string>;
  EXPECT_EQ(nearest_interfaces("gigabit-ethernt-1/1/2", profile, 3), Names{"gigabit-ethernet-1/1/2"});
  EXPECT_EQ(nearest_interfaces("gigabit-ethernet-1/1/9", profile, 3),
            (Names{"gigabit-ethernet-1/1/1", "gigabit-ethernet-1/1/2"}));
  EXPECT_EQ(nearest_interfaces("gigabit-ethernet-1/1/9", profile, 1), Names{"gigabit-ethernet-1/1/1"});
  EXPECT_TRUE(nearest_interfaces("lag-77", profile, 3).empty());
  EXPECT_TRUE(nearest_interfaces("", profile, 3).empty());
}

TEST(Spelling, an_interface_that_is_missing_is_told_with_those_near_it) {
  EXPECT_EQ(element::not_in_profile({}), "not in the profile");
  EXPECT_EQ(element::not_in_profile({"eth1", "eth2"}), "not in the profile (near: eth1, eth2)");
}

}  // namespace
