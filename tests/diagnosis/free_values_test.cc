#include "diagnosis/free_values.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using diagnosis::nearest_free_numbers;
using diagnosis::nearest_free_vlans;
using Ranges = std::vector<l2vpn::VlanRange>;
using Numbers = std::vector<std::uint32_t>;

TEST(FreeVlans, nearest_first_and_of_two_the_higher) {
  EXPECT_EQ(nearest_free_vlans({5, 5}, {{5, 5}}, 3), (Ranges{{6, 6}, {4, 4}, {7, 7}}));
  EXPECT_EQ(nearest_free_vlans({5, 5}, {{4, 8}}, 2), (Ranges{{3, 3}, {2, 2}}));
}

TEST(FreeVlans, ranges_are_as_wide_as_the_wanted_one_and_meet_nothing) {
  EXPECT_EQ(nearest_free_vlans({10, 12}, {{12, 12}, {17, 17}}, 3), (Ranges{{9, 11}, {13, 15}, {6, 8}}));
}

TEST(FreeVlans, none_beyond_the_first_and_the_last) {
  EXPECT_EQ(nearest_free_vlans({1, 2}, {{1, 4092}}, 3), (Ranges{{4093, 4094}}));
  EXPECT_EQ(nearest_free_vlans({4094, 4094}, {{3, 4094}}, 3), (Ranges{{2, 2}, {1, 1}}));
  EXPECT_TRUE(nearest_free_vlans({1, 2}, {{2, 4093}}, 3).empty());
  EXPECT_TRUE(nearest_free_vlans({7, 7}, {{1, 4094}}, 3).empty());
}

TEST(FreeVlans, untagged_frames_take_no_vlan) {
  EXPECT_EQ(nearest_free_vlans({2, 2}, {{0, 0}, {2, 2}}, 2), (Ranges{{3, 3}, {1, 1}}));
}

TEST(FreeNumbers, keep_within_their_bounds) {
  constexpr std::uint32_t last = std::numeric_limits<std::uint32_t>::max();
  EXPECT_EQ(nearest_free_numbers(1, {1}, 3), (Numbers{2, 3, 4}));
  EXPECT_EQ(nearest_free_numbers(last, {last, last - 1}, 2), (Numbers{last - 2, last - 3}));
  EXPECT_EQ(nearest_free_numbers(10, {9, 10, 11, 12, 13}, 3), (Numbers{8, 7, 14}));
}

}  // namespace
