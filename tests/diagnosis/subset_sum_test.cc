// Subsets whose weights sum up to a number in a range, compared with all subsets of a few things.

#include "diagnosis/subset_sum.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using diagnosis::contains;
using diagnosis::NumberSet;
using diagnosis::Share;

std::size_t sum_of(const std::vector<Share> &shares, const NumberSet &set) {
  std::size_t sum = 0;
  for (const Share &share : shares) sum += contains(set, share.entry) ? share.weight : 0;
  return sum;
}

bool has_subset(const std::vector<Share> &shares, std::size_t least, std::size_t most) {
  for (std::uint32_t choice = 0; choice < 1U << shares.size(); ++choice) {
    std::size_t sum = 0;
    for (std::size_t i = 0; i < shares.size(); ++i) sum += (choice >> i & 1U) != 0 ? shares[i].weight : 0;
    if (sum >= least && sum <= most) return true;
  }
  return false;
}

TEST(SubsetOfSum, is_found_where_there_is_one) {
  std::minstd_rand random(1);
  for (int round = 0; round < 500; ++round) {
    std::vector<Share> shares;
    for (std::uint32_t entry = 0; entry < random() % 9; ++entry) shares.push_back({3 * entry, 1 + random() % 6});
    const std::size_t least = random() % 20;
    const std::size_t most = least + random() % 3;
    const std::optional<NumberSet> found = diagnosis::subset_of_sum(shares, least, most);
    ASSERT_EQ(found.has_value(), has_subset(shares, least, most)) << "round " << round;
    if (!found) continue;
    EXPECT_GE(sum_of(shares, *found), least);
    EXPECT_LE(sum_of(shares, *found), most);
  }
}

TEST(SubsetOfSum, of_nothing_is_empty) {
  EXPECT_EQ(diagnosis::subset_of_sum({}, 0, 5), NumberSet{});
  EXPECT_EQ(diagnosis::subset_of_sum({}, 1, 5), std::nullopt);
  EXPECT_EQ(diagnosis::subset_of_sum({{7, 2}}, 0, 0), NumberSet{});
}

}  // namespace
