#include "bench/point_commits.h"

#include <gtest/gtest.h>

#include <string>

#include "bench/asked_point.h"
#include "tests/support/build_under_test.h"

using bench::PointCommitKind;

namespace {

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

std::size_t entries(const element::Tree &tree, const char *list) {
  const element::Node *node = tree.find(list);
  return node == nullptr ? 0 : node->children.size();
}

std::size_t pseudowires(const element::Tree &tree) {
  return entries(tree, "/internal/int-sub-vpls-vpn-nbr") + entries(tree, "/internal/int-vpws-tunnel-idx");
}

std::size_t members(const element::Tree &tree) {
  return entries(tree, "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry");
}

struct Case {
  PointCommitKind kind;
  std::size_t size;
};

class PointCommits : public testing::TestWithParam<Case> {};

// What the point answers otherwise is in the failure's text.
TEST_P(PointCommits, are_accepted_by_their_point) {
  const bench::PointCommit commit = make_point_commit(schema(), GetParam().kind, GetParam().size);
  host::HostSession session(commit.profile);
  const host::Plugin plugin(plugin_file());
  EXPECT_NO_THROW(bench::AskedPoint(commit, plugin, session).validate());
  EXPECT_EQ(session.statistics.owned_values, 0);
}

std::string name_of(const testing::TestParamInfo<Case> &info) {
  return std::string(name(info.param.kind)) + "_" + std::to_string(info.param.size);
}

INSTANTIATE_TEST_SUITE_P(Kinds, PointCommits,
                         testing::Values(Case{PointCommitKind::access_many_ports, 130},
                                         Case{PointCommitKind::access_few_ports, 130},
                                         Case{PointCommitKind::access_one_vpn, 130}, Case{PointCommitKind::peer, 1},
                                         Case{PointCommitKind::peer, 130}, Case{PointCommitKind::peer, 2000},
                                         Case{PointCommitKind::membership, 1}, Case{PointCommitKind::membership, 130}),
                         name_of);

TEST(PeerCommits, have_as_many_pseudowires_as_asked_however_many_are_counted) {
  for (const std::size_t size : {100U, 1024U, 2000U}) {
    const bench::PointCommit commit = make_point_commit(schema(), PointCommitKind::peer, size);
    EXPECT_EQ(pseudowires(commit.transaction->running), size * 9 / 10);
    EXPECT_EQ(pseudowires(commit.transaction->candidate), size);
  }
}

// The uplink's port is a member of the uplink's VLAN.
TEST(MembershipCommits, have_as_many_members_as_asked_and_the_uplinks) {
  const bench::PointCommit commit = make_point_commit(schema(), PointCommitKind::membership, 1000);
  EXPECT_EQ(members(commit.transaction->running), 901U);
  EXPECT_EQ(members(commit.transaction->candidate), 1001U);
}

TEST(PointCommitKinds, are_known_by_their_names) {
  for (const PointCommitKind kind : bench::kPointCommitKinds) EXPECT_EQ(bench::kind_named(name(kind)), kind);
  EXPECT_EQ(bench::kind_named("access"), std::nullopt);
}

}  // namespace
