#include "diagnosis/reduction.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

using diagnosis::Item;
using diagnosis::Items;
using diagnosis::ItemSet;

ItemSet set_of(std::size_t size, const std::vector<std::size_t> &members) {
  ItemSet set(size, false);
  for (const std::size_t member : members) set[member] = true;
  return set;
}

std::vector<std::size_t> members(const ItemSet &set) {
  std::vector<std::size_t> result;
  for (std::size_t i = 0; i < set.size(); ++i) {
    if (set[i]) result.push_back(i);
  }
  return result;
}

bool holds_all(const ItemSet &set, const std::vector<std::size_t> &wanted) {
  return std::all_of(wanted.begin(), wanted.end(), [&set](std::size_t item) { return set[item]; });
}

struct Reduced {
  std::vector<std::size_t> left;
  std::size_t questions = 0;
};

/// From all items, with a condition that the listed ones are there.
Reduced reduce_to(const Items &items, const std::vector<std::size_t> &wanted,
                  const diagnosis::ReductionOptions &options = {}) {
  Reduced result;
  const auto holds = [&](const ItemSet &set) {
    ++result.questions;
    return holds_all(set, wanted);
  };
  result.left = members(diagnosis::reduce(items, ItemSet(items.size(), true), holds, options));
  return result;
}

TEST(Reduction, leaves_what_matters_alone) {
  const Items items(8);
  EXPECT_EQ(reduce_to(items, {}).left, std::vector<std::size_t>{});
  EXPECT_EQ(reduce_to(items, {3}).left, (std::vector<std::size_t>{3}));
  EXPECT_EQ(reduce_to(items, {0, 7}).left, (std::vector<std::size_t>{0, 7}));
  EXPECT_EQ(reduce_to(items, {0, 1, 2, 3, 4, 5, 6, 7}).left.size(), 8u);
}

TEST(Reduction, keeps_what_is_needed) {
  const Items items{{{}, 0}, {{0}, 1}, {{0}, 1}, {{1}, 2}, {{2}, 2}};
  EXPECT_EQ(reduce_to(items, {4}).left, (std::vector<std::size_t>{0, 2, 4}));
}

TEST(Reduction, asks_few_questions_about_two_of_many) { EXPECT_LT(reduce_to(Items(4096), {17, 4000}).questions, 100u); }

TEST(Reduction, tries_a_kind_at_once) {
  Items items(200);
  for (std::size_t i = 0; i < items.size(); ++i) items[i].kind = i % 2;
  std::vector<std::size_t> even;
  for (std::size_t i = 0; i < items.size(); i += 2) even.push_back(i);
  const Reduced reduced = reduce_to(items, even, {.finest_share = 4});
  EXPECT_EQ(reduced.left, even);
  EXPECT_LT(reduced.questions, 20u);
}

TEST(Reduction, the_finest_share_leaves_single_items_untried) {
  Items items(100);
  std::vector<std::size_t> all_but_one;
  for (std::size_t i = 1; i < items.size(); ++i) all_but_one.push_back(i);
  EXPECT_EQ(reduce_to(items, all_but_one).left.size(), 99u);
  EXPECT_EQ(reduce_to(items, all_but_one, {.finest_share = 10}).left.size(), 100u);
}

TEST(Reduction, never_asks_the_same_twice) {
  std::set<ItemSet> asked;
  const auto holds = [&asked](const ItemSet &set) {
    EXPECT_TRUE(asked.insert(set).second);
    return holds_all(set, {2, 5});
  };
  diagnosis::reduce(Items(9), ItemSet(9, true), holds, {.exhaustive_below = 9});
}

TEST(Reduction, looks_within_the_start_only) {
  const auto holds = [](const ItemSet &set) { return set[1] || set[4]; };
  EXPECT_EQ(members(diagnosis::reduce(Items(6), set_of(6, {0, 4, 5}), holds)), (std::vector<std::size_t>{4}));
}

// Dropping one by one ends at {0, 1, 2}: it drops 3, the only way to a single item, before it knows.
TEST(Reduction, few_items_are_searched_for_the_smallest_set_of_all) {
  const auto holds = [](const ItemSet &set) { return (set[0] && set[1] && set[2]) || set[3]; };
  const auto prefers_last_gone = [&](std::size_t exhaustive_below) {
    Items items(4);
    items[3].kind = 0;
    for (std::size_t i = 0; i < 3; ++i) items[i].kind = 1;
    return members(diagnosis::reduce(items, ItemSet(4, true), holds, {.exhaustive_below = exhaustive_below}));
  };
  EXPECT_EQ(prefers_last_gone(3), (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(prefers_last_gone(4), (std::vector<std::size_t>{3}));
}

// Item 1 does without item 2 no better than item 2 without item 1, as two pw-ids that are swapped.
TEST(Reduction, items_that_cannot_go_without_each_other_go_together) {
  const auto holds = [](const ItemSet &set) { return set[0] && set[1] == set[2] && set[19]; };
  const auto left_of_twenty = [&](std::size_t exhaustive_below) {
    return members(diagnosis::reduce(Items(20), ItemSet(20, true), holds, {.exhaustive_below = exhaustive_below}));
  };
  EXPECT_EQ(left_of_twenty(0), (std::vector<std::size_t>{0, 1, 2, 19}));
  EXPECT_EQ(left_of_twenty(4), (std::vector<std::size_t>{0, 19}));
}

/// Items that need some of those before them.
Items any_items() {
  const auto number = *rc::gen::inRange<std::size_t>(1, 9);
  Items items(number);
  for (std::size_t i = 1; i < number; ++i) {
    if (*rc::gen::arbitrary<bool>()) items[i].needs = {*rc::gen::inRange<std::size_t>(0, i)};
    items[i].kind = *rc::gen::inRange<std::size_t>(0, 3);
  }
  return items;
}

std::vector<std::size_t> any_members(std::size_t size) {
  std::vector<std::size_t> wanted;
  for (std::size_t i = 0; i < size; ++i) {
    if (*rc::gen::arbitrary<bool>()) wanted.push_back(i);
  }
  return wanted;
}

RC_GTEST_PROP(ReductionProperty, WhatIsLeftIsTheSmallestOfAllSetsThatLackNothing, ()) {
  const Items items = any_items();
  const std::vector<std::size_t> one_way = any_members(items.size());
  const std::vector<std::size_t> other_way = any_members(items.size());
  const auto holds = [&](const ItemSet &set) {
    RC_ASSERT(diagnosis::with_needs(items, set) == set);
    return holds_all(set, one_way) || holds_all(set, other_way);
  };
  const ItemSet found = diagnosis::reduce(items, ItemSet(items.size(), true), holds, {.exhaustive_below = 8});
  RC_ASSERT(holds(found));
  const auto size_of = [&items](const std::vector<std::size_t> &wanted) {
    return diagnosis::count(diagnosis::with_needs(items, set_of(items.size(), wanted)));
  };
  RC_ASSERT(diagnosis::count(found) == std::min(size_of(one_way), size_of(other_way)));
}

RC_GTEST_PROP(ReductionProperty, DependentsAreThoseThatNeedTheItem, ()) {
  const Items items = any_items();
  const ItemSet set = set_of(items.size(), any_members(items.size()));
  const ItemSet all = diagnosis::with_dependents(items, set);
  ItemSet rest = all;
  rest.flip();
  RC_ASSERT(diagnosis::with_needs(items, rest) == rest);
  for (std::size_t i = 0; i < items.size(); ++i) {
    const ItemSet needed = diagnosis::with_needs(items, set_of(items.size(), {i}));
    bool needs_one = false;
    for (std::size_t j = 0; j < items.size(); ++j) needs_one = needs_one || (needed[j] && set[j]);
    RC_ASSERT(all[i] == needs_one);
  }
}

}  // namespace
