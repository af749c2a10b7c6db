#include <gtest/gtest.h>

#include "tests/support/broken_model.h"
#include "tests/unit/membership_commit.h"

namespace {

using scripted::i32;
using scripted::text;
using scripted::u32;
using scripted::Values;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

constexpr const char *kWarning =
    "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces will not be able "
    "to encapsulate MPLS traffic";

class VlanMembershipTest : public ::testing::Test {
 protected:
  void expect_accepted() { expect(0, {}, kMemberCursor); }
  void expect_warned() { expect(-3, {kWarning}, kMemberCursor); }
  void expect_rejected(const std::string &message) { expect(-1, {message}, {}); }

  void expect(std::int32_t result, const Texts &texts, const Texts &leaks) {
    EXPECT_EQ(commit.verdict(), result);
    EXPECT_EQ(platform.errors(), texts);
    EXPECT_EQ(platform.leaks(), leaks);
    EXPECT_EQ(platform.misuses(), Texts{});
  }

  MembershipCommit commit;
  scripted::Platform &platform = commit.platform;
};

TEST_F(VlanMembershipTest, without_any_access_interface_the_members_are_not_read) {
  commit.add_member(100, 5);
  commit.configure_uplink("100");
  expect(0, {}, {});
  EXPECT_EQ(
      platform.calls(),
      (Calls{"maapi_init_cursor /internal/int-sub-vpls-vpn-ac", "maapi_get_next /internal/int-sub-vpls-vpn-ac",
             "maapi_destroy_cursor /internal/int-sub-vpls-vpn-ac", "maapi_init_cursor /internal/int-vpws-intf-app",
             "maapi_get_next /internal/int-vpws-intf-app", "maapi_destroy_cursor /internal/int-vpws-intf-app"}));
}

TEST_F(VlanMembershipTest, a_port_of_a_port_based_vpls_vpn_takes_no_member) {
  commit.attach_vpls("eth-1-1");
  commit.add_member(100, 5);
  expect_rejected("vlan 100 interface eth-1-1 is already assigned to mpls l2vpn vpls-group G vpn V");
}

TEST_F(VlanMembershipTest, a_port_of_a_port_based_vpws_vpn_takes_no_member) {
  commit.attach_vpws("eth-1-2");
  commit.add_member(4094, 6);
  expect_rejected("vlan 4094 interface eth-1-2 is already assigned to mpls l2vpn vpws-group H vpn W");
}

TEST_F(VlanMembershipTest, another_port_takes_a_member) {
  commit.attach_vpls("eth-1-1");
  commit.add_member(100, 6);
  expect_accepted();
}

TEST_F(VlanMembershipTest, a_port_takes_no_member_of_a_vlan_that_its_vpn_uses) {
  commit.attach_vpls("eth-1-1", 100);
  commit.add_member(100, 5);
  expect_rejected(
      "vlan 100 interface eth-1-1 is already assigned to mpls l2vpn vpls-group G vpn V with the same "
      "dot1q. It must be configured to another dot1q vlan");
}

TEST_F(VlanMembershipTest, a_port_takes_members_of_other_vlans_than_its_vpns) {
  commit.attach_vpls("eth-1-1", 100);
  commit.add_member(99, 5);
  commit.add_member(101, 5);
  commit.add_member(100, 6);
  expect_accepted();
}

struct RangeCase {
  std::int32_t vlan;
  bool is_accepted;
};

TEST(VlanMembershipRangeTest, both_ends_of_a_vpns_dot1q_range_are_its_vlans) {
  for (const RangeCase &row :
       std::vector<RangeCase>{{89, true}, {90, false}, {100, false}, {110, false}, {111, true}}) {
    SCOPED_TRACE(row.vlan);
    MembershipCommit commit;
    commit.attach_vpws("eth-1-1");
    commit.encapsulate_vpws("eth-1-1", 90, 110);
    commit.add_member(row.vlan, 5);
    EXPECT_EQ(commit.verdict(), row.is_accepted ? 0 : -1);
    const std::string message = "vlan " + std::to_string(row.vlan) +
                                " interface eth-1-1 is already assigned to mpls l2vpn vpws-group H vpn W with the same "
                                "dot1q. It must be configured to another dot1q vlan";
    EXPECT_EQ(commit.platform.errors(), row.is_accepted ? Texts{} : Texts{message});
  }
}

TEST_F(VlanMembershipTest, an_untagged_vpn_uses_no_vlan_and_is_not_port_based) {
  commit.attach_vpws("eth-1-1");
  commit.untag_vpws("eth-1-1");
  commit.add_member(100, 5);
  commit.add_member(0, 5);
  expect_accepted();
}

TEST_F(VlanMembershipTest, a_port_based_vpn_is_named_before_a_vlan_based_one) {
  commit.attach_vpls("eth-1-1", 100);
  commit.attach_vpws("eth-1-1");
  commit.add_member(100, 5);
  expect_rejected("vlan 100 interface eth-1-1 is already assigned to mpls l2vpn vpws-group H vpn W");
}

TEST_F(VlanMembershipTest, of_several_vpns_the_first_in_order_is_named) {
  commit.attach_vpls("eth-1-1", 100, "B");
  commit.attach_vpls("eth-1-1", 100, "A");
  commit.add_member(100, 5);
  expect_rejected(
      "vlan 100 interface eth-1-1 is already assigned to mpls l2vpn vpls-group G vpn A with the same "
      "dot1q. It must be configured to another dot1q vlan");
}

TEST(VlanMembershipChangeTest, only_members_that_the_transaction_creates_are_examined) {
  for (const confd_iter_op op :
       {MOP_CREATED, MOP_DELETED, MOP_MODIFIED, MOP_VALUE_SET, MOP_MOVED_AFTER, MOP_ATTR_SET}) {
    SCOPED_TRACE(op);
    MembershipCommit commit;
    commit.attach_vpls("eth-1-1");
    commit.change_member(100, 5, op);
    EXPECT_EQ(commit.verdict(), op == MOP_CREATED ? -1 : 0);
    EXPECT_EQ(commit.platform.errors().size(), op == MOP_CREATED ? 1U : 0U);
  }
}

TEST_F(VlanMembershipTest, a_member_that_the_transaction_does_not_touch_is_not_examined) {
  commit.attach_vpls("eth-1-1");
  commit.configure_member(100, 5);
  commit.add_member(100, 6);
  expect_accepted();
  EXPECT_EQ(platform.count("limid_from_ifindex"), 1U) << "its name is not even asked for";
}

TEST_F(VlanMembershipTest, the_first_rejected_member_in_table_order_ends_the_walk) {
  commit.attach_vpls("eth-1-1", 300);
  commit.attach_vpws("eth-1-2");
  commit.add_member(300, 5);
  commit.add_member(200, 6);
  expect_rejected("vlan 200 interface eth-1-2 is already assigned to mpls l2vpn vpws-group H vpn W");
  EXPECT_EQ(platform.count("maapi_keypath_diff_iterate"), 1U);
}

TEST_F(VlanMembershipTest, a_port_that_the_element_does_not_know_carries_no_vpn) {
  commit.attach_vpls("eth-1-1");
  commit.add_member(100, 7);
  expect_accepted();
  EXPECT_EQ(platform.calls()[platform.calls().size() - 2], "limid_to_intfname 0");
}

TEST_F(VlanMembershipTest, a_ports_name_is_at_most_63_characters_long) {
  const std::string longest(63, 'n');
  platform.interface(longest + "x", 1007, 7);
  commit.attach_vpls(longest);
  commit.add_member(100, 7);
  expect_rejected("vlan 100 interface " + longest + " is already assigned to mpls l2vpn vpls-group G vpn V");
}

TEST_F(VlanMembershipTest, an_uplink_vlan_on_a_port_with_a_vlan_based_vpn_draws_the_warning) {
  commit.attach_vpls("eth-1-1", 100);
  commit.configure_uplink("300");
  commit.add_member(300, 5);
  expect_warned();
}

TEST_F(VlanMembershipTest, another_vlan_draws_none) {
  commit.attach_vpls("eth-1-1", 100);
  commit.configure_uplink("300");
  commit.add_member(301, 5);
  expect_accepted();
}

TEST_F(VlanMembershipTest, an_uplink_vlan_on_a_port_without_a_vpn_draws_none) {
  commit.attach_vpls("eth-1-1", 100);
  commit.configure_uplink("300");
  commit.add_member(300, 6);
  expect_accepted();
}

TEST_F(VlanMembershipTest, an_uplink_vlan_on_a_port_of_a_port_based_vpn_is_rejected_and_not_warned_of) {
  commit.attach_vpls("eth-1-1");
  commit.configure_uplink("300");
  commit.add_member(300, 5);
  expect_rejected("vlan 300 interface eth-1-1 is already assigned to mpls l2vpn vpls-group G vpn V");
}

TEST_F(VlanMembershipTest, without_uplinks_there_is_no_warning) {
  commit.attach_vpls("eth-1-1", 100);
  commit.add_member(300, 5);
  expect_accepted();
}

TEST_F(VlanMembershipTest, one_warning_is_set_for_several_members) {
  commit.attach_vpls("eth-1-1", 100);
  commit.attach_vpws("eth-1-2", 100);
  commit.configure_uplink("300");
  commit.configure_uplink("301");
  commit.add_member(300, 5);
  commit.add_member(300, 6);
  commit.add_member(301, 5);
  expect_warned();
}

TEST_F(VlanMembershipTest, a_warning_stays_when_later_members_draw_none) {
  commit.attach_vpls("eth-1-1", 100);
  commit.configure_uplink("300");
  commit.add_member(300, 5);
  commit.add_member(301, 5);
  commit.add_member(301, 6);
  expect_warned();
}

TEST_F(VlanMembershipTest, a_member_is_rejected_after_a_warning_and_its_message_stands) {
  commit.attach_vpls("eth-1-1", 100);
  commit.attach_vpws("eth-1-2");
  commit.configure_uplink("300");
  commit.add_member(300, 5);
  commit.add_member(301, 6);
  expect(-1, {kWarning, "vlan 301 interface eth-1-2 is already assigned to mpls l2vpn vpws-group H vpn W"}, {});
}

TEST_F(VlanMembershipTest, asks_in_this_order) {
  commit.attach_vpls("eth-1-1", 100);
  commit.configure_uplink("300");
  commit.configure_member(100, 5);
  commit.add_member(300, 5);
  expect_warned();
  const std::string members = "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  const std::string encapsulation =
      "/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-ac{eth-1-1}/"
      "int-vpls-encap/int-vpls-encap-";
  EXPECT_EQ(platform.calls(), (Calls{"maapi_init_cursor /internal/int-sub-vpls-vpn-ac",
                                     "maapi_get_next /internal/int-sub-vpls-vpn-ac",
                                     "maapi_get_u_int32_elem /internal/int-sub-vpls-vpn-bd{G V 1}/int-vpls-bd-vlan",
                                     "maapi_exists " + encapsulation + "untagged",
                                     "maapi_num_instances " + encapsulation + "dot1q-range",
                                     "maapi_get_next /internal/int-sub-vpls-vpn-ac",
                                     "maapi_destroy_cursor /internal/int-sub-vpls-vpn-ac",
                                     "maapi_init_cursor /internal/int-vpws-intf-app",
                                     "maapi_get_next /internal/int-vpws-intf-app",
                                     "maapi_destroy_cursor /internal/int-vpws-intf-app",
                                     "maapi_num_instances /internal/int-ldp-intf-l3",
                                     "maapi_init_cursor /internal/int-ldp-intf-l3",
                                     "maapi_get_next /internal/int-ldp-intf-l3",
                                     "maapi_get_next /internal/int-ldp-intf-l3",
                                     "maapi_destroy_cursor /internal/int-ldp-intf-l3",
                                     std::string("maapi_init_cursor ") + kStaticMembers,
                                     "maapi_get_next " + members,
                                     std::string("maapi_keypath_diff_iterate ") + kStaticMembers + "{1 100 5}",
                                     "maapi_get_next " + members,
                                     std::string("maapi_keypath_diff_iterate ") + kStaticMembers + "{1 300 5}",
                                     "limid_from_ifindex 5",
                                     "limid_to_intfname 1005",
                                     std::string("confd_trans_seterr ") + kWarning,
                                     "maapi_get_next " + members}));
}

TEST_F(VlanMembershipTest, a_rejection_destroys_the_cursor_after_its_message) {
  commit.attach_vpls("eth-1-1");
  commit.add_member(100, 5);
  const std::string message = "vlan 100 interface eth-1-1 is already assigned to mpls l2vpn vpls-group G vpn V";
  expect_rejected(message);
  const Calls &calls = platform.calls();
  EXPECT_EQ(calls[calls.size() - 2], "confd_trans_seterr " + message);
  EXPECT_EQ(calls.back(),
            "maapi_destroy_cursor /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry");
}

TEST_F(VlanMembershipTest, a_key_of_another_type_stops_the_process_also_in_a_member_that_did_not_change) {
  commit.attach_vpls("eth-1-1");
  platform.list(kStaticMembers, 3, {{u32(1), u32(100), u32(5)}});
  EXPECT_BROKEN_MODEL(commit.verdict(), "config_validate_vpn", "(&mc.keys[1])->type == C_INT32");
  platform.list(kStaticMembers, 3, {{u32(1), i32(100), u32(5)}});
  EXPECT_BROKEN_MODEL(commit.verdict(), "config_validate_vpn", "(&mc.keys[2])->type == C_INT32");
}

}  // namespace
