#include "maintenance/queue/queue_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <random>

#include "tests/maintenance/reports/queued_vpns.h"
#include "tests/support/build_under_test.h"

namespace {

using queue::PairKind;
using queue::Proof;
using queue::StepOutcome;

using Indexes = std::vector<std::size_t>;

TEST(QueueSearch, keeps_an_order_in_which_all_go_through) {
  QueueOnElement element(configuration_with({{"a", 1, 10}}));
  element.add_edit("first", edit_of({"b", 1, 20}));
  element.add_edit("second", edit_of({"c", 1, 30}));
  const queue::Queue found = element.search();
  EXPECT_EQ(found.order, (Indexes{0, 1}));
  EXPECT_EQ(found.proof, Proof::all_go);
  EXPECT_TRUE(found.pairs.empty());
  EXPECT_EQ(found.pairs_asked, 1u);
}

TEST(QueueSearch, puts_what_needs_another_one_behind_it) {
  QueueOnElement element(configuration_with({{"a", 1, 10}}));
  element.add_edit("takes", edit_of({"b", 1, 10}));
  element.add_edit("frees", edit_of({"a", 1, 20}));
  const queue::Queue found = element.search();
  EXPECT_EQ(found.alone[0].outcome, StepOutcome::rejected);
  EXPECT_EQ(found.alone[0].messages.back().text,
            "vpws-group g vpn b and vpws-group g vpn a must not be configured with the same dot1q on interface "
            "gigabit-ethernet-1/1/1");
  EXPECT_EQ(found.order, (Indexes{1, 0}));
  EXPECT_EQ(found.proof, Proof::all_go);
  ASSERT_EQ(found.pairs.size(), 1u);
  EXPECT_EQ(found.pairs[0].kind, PairKind::needs);
  EXPECT_EQ(found.pairs[0].first, 1u);
}

TEST(QueueSearch, tells_pairs_that_exclude_each_other_and_leaves_out_the_fewest) {
  QueueOnElement element(configuration_with({{"a", 1, 10}}));
  // The first one excludes two that go together.
  element.add_edit("both", edit_of({"b", 2, 20}));
  element.add_edit("one", edit_of({"c", 2, 20}));
  element.add_edit("other", edit_of({"b", 3, 30}));
  const queue::Queue found = element.search();
  ASSERT_FALSE(found.pairs.empty());
  EXPECT_EQ(found.pairs[0].kind, PairKind::exclusive);
  EXPECT_EQ(found.pairs[0].second_on_first.outcome, StepOutcome::rejected);
  EXPECT_EQ(found.pairs[0].first_on_second.outcome, StepOutcome::rejected);
  EXPECT_EQ(found.order.size(), 2u);
  EXPECT_EQ(found.proof, Proof::most_go);
  EXPECT_EQ(found.left_out.size(), 1u);
  EXPECT_EQ(found.left_out_steps[0].outcome, StepOutcome::rejected);
}

TEST(QueueSearch, tells_a_pair_that_has_one_order) {
  QueueOnElement element(configuration_with({{"a", 1, 10}}));
  const std::string changes_leaf =
      "<edit-config xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'><target><candidate/></target>"
      "<default-operation>none</default-operation><config>"
      "<mpls xmlns='urn:element:mpls'><l2vpn-config xmlns='urn:element:l2-vpn'><l2vpn><vpws-group><name>g</name>"
      "<vpn><name>a</name><access-interface xmlns:nc='urn:ietf:params:xml:ns:netconf:base:1.0' nc:operation='merge'>"
      "<name>gigabit-ethernet-1/1/2</name><dot1q>20</dot1q></access-interface></vpn></vpws-group></l2vpn>"
      "</l2vpn-config></mpls></config></edit-config>";
  element.add_edit("removes", edit_of({"a", 1, 0}));
  element.add_edit("changes", changes_leaf);
  const queue::Queue found = element.search();
  ASSERT_EQ(found.pairs.size(), 1u);
  EXPECT_EQ(found.pairs[0].kind, PairKind::one_order);
  EXPECT_EQ(found.pairs[0].first, 1u);
  EXPECT_EQ(found.pairs[0].first_on_second.outcome, StepOutcome::does_not_fit);
  EXPECT_NE(found.pairs[0].first_on_second.misfit.find("/vpn{a}"), std::string::npos);
  EXPECT_EQ(found.order, (Indexes{1, 0}));
}

TEST(QueueSearch, tells_where_the_order_makes_another_configuration) {
  QueueOnElement element(configuration_with({{"a", 1, 10}}));
  element.add_edit("twenty", edit_of({"a", 1, 20}));
  element.add_edit("thirty", edit_of({"a", 1, 30}));
  const queue::Queue found = element.search();
  ASSERT_EQ(found.pairs.size(), 1u);
  EXPECT_EQ(found.pairs[0].kind, PairKind::order_matters);
  EXPECT_EQ(to_text(found.pairs[0].differs),
            "/mpls/l2vpn-config/l2vpn/vpws-group{g}/vpn{a}/access-interface{gigabit-ethernet-1/1/1}/dot1q");
  EXPECT_EQ(found.proof, Proof::all_go);
}

TEST(QueueSearch, a_candidate_brings_what_it_has_other_than_the_running_configuration) {
  QueueOnElement element(configuration_with({{"a", 1, 10}, {"b", 2, 10}}));
  element.add_candidate("adds", configuration_with({{"a", 1, 10}, {"b", 2, 10}, {"c", 3, 10}}));
  element.add_candidate("removes", configuration_with({{"a", 1, 10}}));
  element.add_candidate("adds too", configuration_with({{"a", 1, 10}, {"b", 2, 10}, {"c", 3, 10}}));
  const queue::Queue found = element.search();
  EXPECT_EQ(found.order, (Indexes{0, 1}));
  EXPECT_EQ(found.proof, Proof::most_go);
  EXPECT_EQ(found.left_out_steps[0].outcome, StepOutcome::does_not_fit) << "what is there cannot be made again";
}

TEST(QueueSearch, says_what_it_did_not_ask) {
  QueueOnElement element(configuration_with({{"a", 1, 10}}));
  for (const char *name : {"b", "c", "d", "e"}) element.add_edit(name, edit_of({name, 1, 10 + name[0]}));
  const queue::Queue found = element.search({3, std::chrono::seconds(60)});
  EXPECT_EQ(found.alone[2].outcome, StepOutcome::accepted);
  EXPECT_EQ(found.alone[3].outcome, StepOutcome::not_asked);
  EXPECT_EQ(found.proof, Proof::none);
  EXPECT_EQ(found.pairs_asked, 0u);
  EXPECT_TRUE(found.order.empty());
}

TEST(QueueSearch, claims_nothing_about_most_where_there_are_too_many_sets) {
  QueueOnElement element(configuration_with({{"z", 4, 10}}));
  element.add_edit("never", edit_of({"y", 4, 10}));
  for (char name = 'a'; name < 'a' + 5; ++name) {
    element.add_edit(std::string(1, name), edit_of({std::string(1, name), 1 + name % 3, 10 + name}));
  }
  const queue::Queue all = element.search({}, 32);
  EXPECT_EQ(all.order.size(), 5u);
  EXPECT_EQ(all.proof, Proof::most_go);
  EXPECT_EQ(all.sets_asked, 31u);
  const queue::Queue some = element.search({}, 20);
  EXPECT_EQ(some.order.size(), 5u);
  EXPECT_EQ(some.proof, Proof::none);
}

/// The most that any order lets through.
std::size_t most_in_any_order(QueueOnElement &element) {
  Indexes order(element.changes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::size_t most = 0;
  do {
    most = std::max(most, element.goes_through(order));
  } while (std::next_permutation(order.begin(), order.end()));
  return most;
}

// VPNs come, go and change their VLAN, on few ports and VLANs, so that most changes have to do with others.
// QUEUE_SEEDS: so many draws instead of eight, from QUEUE_SEED on.
TEST(QueueProperty, finds_as_long_an_order_as_there_is) {
  const auto number = [](const char *name, unsigned otherwise) {
    const char *wanted = std::getenv(name);
    return wanted == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(wanted, nullptr, 10));
  };
  const unsigned first = number("QUEUE_SEED", 0);
  for (unsigned seed = first; seed != first + number("QUEUE_SEEDS", is_sanitized() ? 2 : 8); ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto draw = [&random](int from, int to) {
      return from + static_cast<int>(random() % unsigned(to - from + 1));
    };
    QueueOnElement element(configuration_with({{"a", 1, 10}, {"b", 1, 11}, {"c", 2, 10}}));
    for (int i = 0; i < 5; ++i) {
      const std::string name(1, static_cast<char>('a' + draw(0, 4)));
      const int vlan = draw(0, 3) == 0 ? 0 : draw(10, 12);
      element.add_edit(name, edit_of({name, draw(1, 2), vlan}));
    }
    const queue::Queue found = element.search();
    ASSERT_NE(found.proof, Proof::none);
    EXPECT_EQ(found.order.size(), most_in_any_order(element));
    EXPECT_EQ(element.goes_through(found.order), found.order.size());
  }
}

}  // namespace
