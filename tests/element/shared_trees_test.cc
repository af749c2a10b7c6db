#include <gtest/gtest.h>

#include <utility>

#include "element/datastore/transaction.h"
#include "element/projection/projection.h"
#include "tests/element/configuration_text.h"
#include "tests/element/print.h"

using element::Profile;
using element::Tree;

namespace {

const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group";
const std::string vpn_list = vpls + "{G}/vpn";

Tree two_vpns() {
  Tree tree(test_schema());
  tree.put(vpls + "{G}/vpn{A}/bridge-domain/dot1q", std::uint32_t{7});
  tree.put(vpls + "{G}/vpn{A}/bridge-domain/access-interface{eth1}");
  tree.put(vpls + "{G}/vpn{B}/bridge-domain/access-interface{eth2}");
  return tree;
}

/// The VPN's entry as reading sees it.
const element::Node *vpn_of(const Tree &tree, const std::string &name) {
  return tree.find(vpn_list + "{" + name + "}");
}

TEST(SharedTrees, a_copy_holds_the_same_nodes) {
  const Tree tree = two_vpns();
  const Tree copy = tree;
  EXPECT_EQ(vpn_of(copy, "A"), vpn_of(tree, "A"));
}

TEST(SharedTrees, what_is_written_to_a_copy_stays_out_of_the_other) {
  const Tree tree = two_vpns();
  Tree copy = tree;
  copy.put(vpls + "{G}/vpn{A}/bridge-domain/dot1q", std::uint32_t{8});
  copy.erase(vpls + "{G}/vpn{B}");
  EXPECT_EQ(print(tree), print(two_vpns()));
  EXPECT_EQ(vpn_of(copy, "B"), nullptr);
}

TEST(SharedTrees, writing_below_one_entry_leaves_its_siblings_shared) {
  const Tree tree = two_vpns();
  Tree copy = tree;
  copy.put(vpls + "{G}/vpn{A}/bridge-domain/dot1q", std::uint32_t{8});
  EXPECT_NE(vpn_of(copy, "A"), vpn_of(tree, "A"));
  EXPECT_EQ(vpn_of(copy, "B"), vpn_of(tree, "B"));
}

TEST(SharedTrees, equal_subtrees_of_two_trees_become_one) {
  const Tree running = two_vpns();
  Tree candidate = two_vpns();
  candidate.put(vpls + "{G}/vpn{A}/bridge-domain/dot1q", std::uint32_t{8});
  const auto before = print(candidate);
  share_equal_subtrees(candidate, running);
  EXPECT_EQ(print(candidate), before);
  EXPECT_NE(vpn_of(candidate, "A"), vpn_of(running, "A"));
  EXPECT_EQ(vpn_of(candidate, "B"), vpn_of(running, "B"));
}

TEST(SharedTrees, sorting_what_is_in_order_leaves_it_shared) {
  const Tree tree = two_vpns();
  Tree copy = tree;
  copy.sort();
  EXPECT_EQ(vpn_of(copy, "A"), vpn_of(tree, "A"));
}

class KeptVpns : public testing::Test {
 protected:
  const Profile profile{{}, {{"eth1", 1, 1001}, {"eth2", 2, 1002}}};
};

TEST_F(KeptVpns, a_part_of_a_configuration_derives_to_the_same_with_and_without_keeping) {
  const Tree whole = two_vpns();
  element::Projector keeping(profile);
  keeping.keep(whole, whole);
  element::Projector deriving(profile);
  Tree unused = whole;
  deriving.project(unused);

  Tree part = whole;
  part.erase(vpls + "{G}/vpn{A}");
  Tree same_part = part;
  keeping.project(part);
  deriving.project(same_part);
  EXPECT_EQ(print(part), print(same_part));
}

/// VPNs of both families with neighbours and backup neighbours; those of odd numbers are added by the candidate, so
/// that the order of identifiers is not that of names.
Tree many_vpns(bool is_candidate) {
  Tree tree(test_schema());
  for (std::uint32_t i = 0; i < 40; ++i) {
    if (i % 2 == 1 && !is_candidate) continue;
    const std::string name = "v" + std::to_string(100 + i);
    tree.put(vpls + "{G}/vpn{" + name + "}/vfi/neighbor{10.0.0.1}/pw-id", i);
    const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{" + name + "}/";
    tree.put(vpws + "neighbor{10.0.0.2}/pw-id", i);
    tree.put(vpws + "backup-neighbor{10.0.0.1}/pw-id", i + (i == 0 && is_candidate ? 1000 : 100));
  }
  tree.sort();
  return tree;
}

TEST_F(KeptVpns, a_part_of_a_commit_derives_to_entries_in_order) {
  const Tree running = many_vpns(false);
  Tree candidate = many_vpns(true);
  element::share_equal_subtrees(candidate, running);
  element::Projector keeping(profile);
  keeping.keep(running, candidate);
  element::Projector deriving(profile);
  for (Tree tree : {running, candidate}) deriving.project(tree);

  for (const std::uint32_t step : {1U, 2U, 3U, 30U}) {
    for (const Tree *whole : {&running, &std::as_const(candidate)}) {
      Tree part = *whole;
      for (std::uint32_t i = 0; i < 40; ++i) {
        if (i % step != 0) part.erase(vpls + "{G}/vpn{v" + std::to_string(100 + i) + "}");
        if (i % step != 0) part.erase("/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{v" + std::to_string(100 + i) + "}");
      }
      Tree same_part = part;
      keeping.project(part);
      deriving.project(same_part);
      EXPECT_EQ(print(part), print(same_part)) << step;
    }
  }
}

TEST_F(KeptVpns, a_vpn_keeps_its_identifier_in_a_part_of_the_configuration) {
  Tree part = two_vpns();
  element::Projector projector(profile);
  projector.keep(part, part);
  part.erase(vpls + "{G}/vpn{A}");
  projector.project(part);
  EXPECT_NE(part.find("/internal/int-sub-vpls-vpn-bd{G B 2}"), nullptr);
}

TEST_F(KeptVpns, a_changed_vpn_is_derived_anew) {
  const Tree whole = two_vpns();
  element::Projector projector(profile);
  projector.keep(whole, whole);
  Tree changed = whole;
  changed.put(vpls + "{G}/vpn{A}/bridge-domain/dot1q", std::uint32_t{9});
  projector.project(changed);
  const element::Node *vlan = changed.find("/internal/int-sub-vpls-vpn-bd{G A 1}/int-vpls-bd-vlan");
  ASSERT_NE(vlan, nullptr);
  EXPECT_EQ(vlan->value, element::Value{std::uint32_t{9}});
}

TEST_F(KeptVpns, projecting_twice_leaves_what_is_kept_as_it_was) {
  const Tree whole = two_vpns();
  element::Projector projector(profile);
  projector.keep(whole, whole);
  Tree first = whole;
  projector.project(first);
  const auto before = print(first);
  Tree second = whole;
  projector.project(second);
  second.put("/internal/int-sub-vpls-vpn-bd{G A 1}/int-vpls-bd-vlan", std::uint32_t{1});
  EXPECT_EQ(print(first), before);
}

}  // namespace
