// Sets of parties without a known conflict that bring every two of them together.

#include "diagnosis/independent_sets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace {

using diagnosis::Bound;
using diagnosis::contains;
using diagnosis::IndependentSets;
using diagnosis::intersection;
using diagnosis::is_subset;
using diagnosis::NumberSet;
using diagnosis::united;

constexpr std::size_t kManySets = 1000;

std::vector<Bound> pairs(std::uint32_t number) {
  std::vector<Bound> bounds;
  for (std::uint32_t pair = 0; pair < number; ++pair) bounds.push_back({{2 * pair, 2 * pair + 1}, 1});
  return bounds;
}

std::size_t weight_in(const NumberSet &set, const Bound &bound) {
  std::size_t weight = 0;
  for (std::size_t i = 0; i < bound.parties.size(); ++i) {
    if (contains(set, bound.parties[i])) weight += bound.weight(i);
  }
  return weight;
}

bool keeps_to(const NumberSet &set, const std::vector<Bound> &bounds) {
  return std::all_of(bounds.begin(), bounds.end(),
                     [&set](const Bound &bound) { return weight_in(set, bound) <= bound.most; });
}

NumberSet parties_of(const std::vector<Bound> &bounds) {
  NumberSet parties;
  for (const Bound &bound : bounds) parties = united(parties, bound.parties);
  return parties;
}

bool has_room_for(const NumberSet &set, const std::vector<Bound> &bounds, std::uint32_t party) {
  return !contains(set, party) && keeps_to(united(set, {party}), bounds);
}

void expect_to_cover(const IndependentSets &covering, const std::vector<Bound> &bounds) {
  EXPECT_TRUE(covering.is_covering);
  const NumberSet parties = parties_of(bounds);
  for (const NumberSet &set : covering.sets) {
    EXPECT_TRUE(keeps_to(set, bounds));
    for (const std::uint32_t party : parties) EXPECT_FALSE(has_room_for(set, bounds, party)) << party;
  }
  for (const std::uint32_t one : parties) {
    for (const std::uint32_t other : parties) {
      const NumberSet pair = united({one}, {other});
      const bool is_together = std::any_of(covering.sets.begin(), covering.sets.end(),
                                           [&pair](const NumberSet &set) { return is_subset(pair, set); });
      EXPECT_EQ(is_together, keeps_to(pair, bounds)) << one << " " << other;
    }
  }
}

TEST(IndependentSets, of_nothing_are_one_empty_set) {
  const IndependentSets covering = diagnosis::independent_sets({}, {}, kManySets);
  EXPECT_EQ(covering.sets, std::vector<NumberSet>{{}});
  EXPECT_TRUE(covering.is_covering);
}

TEST(IndependentSets, bring_every_two_together_that_may_be) {
  const std::vector<std::vector<Bound>> cases{
      pairs(1),
      pairs(2),
      pairs(20),
      {{{1, 2}, 1}, {{2, 3}, 1}, {{3, 4}, 1}},               // a chain
      {{{1, 2}, 1}, {{1, 3}, 1}, {{2, 3}, 1}, {{4, 5}, 1}},  // each against each, and a pair
      {{{1, 2, 3, 4, 5}, 3}, {{5, 6}, 1}},                   // a limit
      {{{1, 2, 3, 4}, 4, {3, 2, 1, 0}}, {{3, 4}, 1}},        // a limit of things that weigh differently
      {{{1}, 0}, {{2, 3}, 1}}};                              // a fault of one entry
  for (const std::vector<Bound> &bounds : cases) {
    expect_to_cover(diagnosis::independent_sets(bounds, {}, kManySets), bounds);
  }
}

// Each set is a question about the whole commit.
TEST(IndependentSets, grow_with_the_logarithm_of_the_conflicts) {
  EXPECT_LE(diagnosis::independent_sets(pairs(20), {}, kManySets).sets.size(), 8U);
  EXPECT_LE(diagnosis::independent_sets(pairs(400), {}, kManySets).sets.size(), 13U);
}

TEST(IndependentSets, leave_room_for_what_is_kept) {
  const IndependentSets covering = diagnosis::independent_sets(pairs(2), {0}, kManySets);
  for (const NumberSet &set : covering.sets) {
    EXPECT_FALSE(contains(set, 0));
    EXPECT_FALSE(contains(set, 1));
    EXPECT_EQ(set.size(), 1U);
  }
}

TEST(IndependentSets, tell_that_more_are_needed_than_allowed) {
  const IndependentSets covering = diagnosis::independent_sets(pairs(20), {}, 2);
  EXPECT_EQ(covering.sets.size(), 2U);
  EXPECT_FALSE(covering.is_covering);
}

}  // namespace
