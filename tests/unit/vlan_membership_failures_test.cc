// What comes of a commit of static members when a call of the platform fails.

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/rule_message.h"
#include "tests/unit/membership_commit.h"

namespace {

using Texts = std::vector<std::string>;

constexpr const char *kVpls100 =
    "vlan 100 interface eth-1-1 is already assigned to mpls l2vpn vpls-group G vpn V with the same dot1q. It must be "
    "configured to another dot1q vlan";
constexpr const char *kVplsWholePort =
    "vlan 100 interface eth-1-1 is already assigned to mpls l2vpn vpls-group G vpn V";
constexpr const char *kVpws200 =
    "vlan 200 interface eth-1-2 is already assigned to mpls l2vpn vpws-group H vpn W with the same dot1q. It must be "
    "configured to another dot1q vlan";

/// What comes of a commit when the n-th call of a function fails: of one that adds a member in a VPLS VPN's VLAN and
/// another in a VPWS VPN's, and of one that adds a member in an uplink's VLAN.
struct FailureCase {
  const char *function;
  std::size_t nth;
  const char *conflict_text;
  bool is_warned;
};

const std::vector<FailureCase> failure_cases{
    {"", 1, kVpls100, true},
    {"maapi_init_cursor", 1, kVpws200, false},
    {"maapi_init_cursor", 2, kVpls100, true},
    {"maapi_init_cursor", 3, kVpls100, false},
    {"maapi_init_cursor", 4, "", false},
    {"maapi_get_next", 1, kVpws200, false},
    {"maapi_get_next", 2, kVpls100, true},
    {"maapi_get_next", 3, kVpls100, true},
    {"maapi_get_next", 4, kVpls100, true},
    {"maapi_get_next", 5, kVpls100, false},
    {"maapi_get_next", 6, kVpls100, true},
    {"maapi_get_next", 7, "", false},
    {"maapi_get_u_int32_elem", 1, kVplsWholePort, false},
    {"maapi_exists", 1, kVpls100, true},
    {"maapi_exists", 2, kVpls100, true},
    {"maapi_num_instances", 1, kVpls100, true},
    {"maapi_num_instances", 2, kVpls100, true},
    {"maapi_num_instances", 3, kVpls100, false},
    {"maapi_keypath_diff_iterate", 1, kVpws200, false},
    {"limid_from_ifindex", 1, kVpws200, false},
    {"limid_to_intfname", 1, kVpws200, false},
};

void configure_for_failures(MembershipCommit &commit) {
  commit.attach_vpls("eth-1-1", 100);
  commit.attach_vpws("eth-1-2", 200);
  commit.configure_uplink("300");
}

TEST(VlanMembershipFailureTest, a_failed_call_leaves_a_conflict_that_can_still_be_seen) {
  for (const FailureCase &row : failure_cases) {
    SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.nth));
    MembershipCommit commit;
    configure_for_failures(commit);
    commit.add_member(100, 5);
    commit.add_member(200, 6);
    commit.platform.fail(row.function, row.nth);
    const bool is_rejected = *row.conflict_text != '\0';
    EXPECT_EQ(commit.verdict(), is_rejected ? -1 : 0);
    EXPECT_EQ(commit.platform.errors(), is_rejected ? Texts{row.conflict_text} : Texts{});
    EXPECT_EQ(commit.platform.misuses(), Texts{});
    if (is_rejected) {
      EXPECT_EQ(commit.platform.leaks(), Texts{});
    }
  }
}

TEST(VlanMembershipFailureTest, a_failed_call_may_cost_the_warning) {
  for (const FailureCase &row : failure_cases) {
    if (row.conflict_text == kVplsWholePort) continue;  // the member is then in a port-based VPN's port
    SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.nth));
    MembershipCommit commit;
    configure_for_failures(commit);
    commit.add_member(300, 5);
    commit.platform.fail(row.function, row.nth);
    EXPECT_EQ(commit.verdict(), row.is_warned ? -3 : 0);
    EXPECT_EQ(commit.platform.errors(), row.is_warned ? Texts{message_of("member-on-uplink", {})} : Texts{});
    EXPECT_EQ(commit.platform.misuses(), Texts{});
  }
}

TEST(VlanMembershipFailureTest, an_uplink_vlan_that_is_no_number_leaves_nothing_open) {
  MembershipCommit commit;
  configure_for_failures(commit);
  commit.configure_uplink("none");
  EXPECT_THROW(commit.verdict(), std::invalid_argument);
  EXPECT_EQ(commit.platform.leaks(), Texts{});
}

}  // namespace
