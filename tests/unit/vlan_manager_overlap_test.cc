#include "config_validate_comn/config_validate_comn.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::i32;
using scripted::u32;

class VlanManagerVlanBasedTest : public AccessTest {
 protected:
  std::int32_t verdict(st_acc_dot1q_range_t range, en_vpn_match_type_t match = VPN_MATCH_DOT1Q) {
    return config_validate_vpn_access_vlm_vlan_based(sock(), tctx(), match, group, vpn, interface, range);
  }

  static std::string assigned(int vlan) {
    return "vpls-group north vpn red interface eth-1 is already assigned to dot1q vlan " + std::to_string(vlan) +
           ". It must be configured to another dot1q";
  }

  std::string group = "vpls-group north";
  std::string vpn = "vpn red";
  std::string interface = "eth-1";
};

constexpr int kEth1 = 1001;
constexpr int kEth2 = 1002;

struct MemberCase {
  const char *name;
  std::vector<std::pair<int, int>> members;  ///< VLAN, ifindex
  st_acc_dot1q_range_t range;
  int assigned_vlan;  ///< -1: accepted
};

void PrintTo(const MemberCase &row, std::ostream *out) { *out << row.name; }

const std::vector<MemberCase> member_cases{
    {"a VLAN without members", {}, {100, 100}, -1},
    {"a VLAN with this port", {{100, kEth1}}, {100, 100}, 100},
    {"a VLAN with another port", {{100, kEth2}}, {100, 100}, -1},
    {"another VLAN with this port", {{101, kEth1}}, {100, 100}, -1},
    {"VLAN 0 is looked up like any other", {{0, kEth1}}, {0, 0}, 0},
    {"a range without members", {}, {100, 200}, -1},
    {"this port in the range", {{150, kEth1}}, {100, 200}, 150},
    {"this port at the minimum", {{100, kEth1}}, {100, 200}, 100},
    {"this port at the maximum", {{200, kEth1}}, {100, 200}, 200},
    {"this port below the range", {{99, kEth1}}, {100, 200}, -1},
    {"this port above the range", {{201, kEth1}}, {100, 200}, -1},
    {"first member far above the range", {{250, kEth1}}, {100, 200}, -1},
    {"this port is the second member of the lowest VLAN", {{150, 999}, {150, kEth1}}, {100, 200}, 150},
    {"another port at the lowest VLAN hides this port", {{150, kEth2}, {180, kEth1}}, {100, 200}, -1},
    {"this and another port at the lowest VLAN", {{150, kEth1}, {150, kEth2}}, {100, 200}, 150},
    {"a maximum below the minimum holds no VLAN", {{150, kEth1}}, {100, 99}, -1},
    {"a negative ifindex of the minimum stands before the place that is searched", {{100, -1}}, {100, 200}, -1},
    {"bounds are compared as signed numbers", {{150, kEth1}}, {100, 0xFFFFFFFF}, -1},
};

class VlanManagerVlanBasedTableTest : public VlanManagerVlanBasedTest,
                                      public ::testing::WithParamInterface<MemberCase> {};

TEST_P(VlanManagerVlanBasedTableTest, decides) {
  const MemberCase &row = GetParam();
  for (const auto &[vlan, ifindex] : row.members) add_static_member(vlan, ifindex);

  EXPECT_EQ(verdict(row.range), row.assigned_vlan < 0 ? 0 : -1);
  EXPECT_EQ(platform.error(), row.assigned_vlan < 0 ? "" : assigned(row.assigned_vlan));
}

INSTANTIATE_TEST_SUITE_P(Rows, VlanManagerVlanBasedTableTest, ::testing::ValuesIn(member_cases));

TEST_F(VlanManagerVlanBasedTest, a_port_based_attachment_is_not_this_rules_concern) {
  add_static_member(0, kEth1);
  EXPECT_EQ(verdict({0, 0}, VPN_MATCH_PORT_BASED), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(VlanManagerVlanBasedTest, another_match_type_is_taken_as_vlan_based) {
  add_static_member(10, kEth1);
  EXPECT_EQ(verdict({10, 10}, static_cast<en_vpn_match_type_t>(3)), -1);
  EXPECT_EQ(platform.error(), assigned(10));
}

TEST_F(VlanManagerVlanBasedTest, a_single_vlan_costs_one_look_up) {
  EXPECT_EQ(verdict({100, 100}), 0);
  EXPECT_EQ(platform.calls(), (Calls{"limid_from_intfname eth-1", "limid_to_ifindex 101",
                                     std::string("maapi_exists ") + kMembers + "{1 100 1001}"}));
}

TEST_F(VlanManagerVlanBasedTest, a_range_costs_one_search_and_one_look_up) {
  const std::string table = "/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  add_static_member(150, kEth2);
  EXPECT_EQ(verdict({100, 200}), 0);
  EXPECT_EQ(platform.calls(),
            (Calls{"limid_from_intfname eth-1", "limid_to_ifindex 101", std::string("maapi_init_cursor ") + kMembers,
                   "maapi_find_next /KZ-VLAN-MANAGER-MIB" + table + " same or after {1 100 0}",
                   std::string("maapi_exists ") + kMembers + "{1 150 1001}",
                   "maapi_destroy_cursor /KZ-VLAN-MANAGER-MIB" + table}));
}

TEST_F(VlanManagerVlanBasedTest, a_member_that_is_this_port_needs_no_look_up) {
  add_static_member(150, kEth1);
  EXPECT_EQ(verdict({100, 200}), -1);
  EXPECT_EQ(platform.count("maapi_exists"), 0U);
  EXPECT_EQ(platform.count("maapi_find_next"), 1U);
}

TEST_F(VlanManagerVlanBasedTest, an_unknown_interface_goes_on_with_ifindex_zero) {
  interface = "eth-9";
  add_static_member(100, 0);
  EXPECT_EQ(verdict({100, 100}), -1);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-9 is already assigned to dot1q vlan 100. It must be configured to another dot1q");
}

TEST_F(VlanManagerVlanBasedTest, accepts_when_a_read_fails) {
  add_static_member(100, kEth1);
  add_static_member(150, kEth1);
  for (const char *function : {"limid_from_intfname", "limid_to_ifindex", "maapi_exists"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict({100, 100}), 0);
  }
  for (const char *function : {"maapi_init_cursor", "maapi_find_next"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict({120, 200}), 0);
  }
  EXPECT_EQ(platform.error(), "");
}

TEST_F(VlanManagerVlanBasedTest, the_keys_of_the_member_are_integers) {
  platform.list(kMembers, 3, {{u32(1), u32(150), i32(kEth1)}});
  EXPECT_BROKEN_MODEL(verdict({100, 200}), "config_validate_comn", "(&mc.keys[1])->type == C_INT32");
  platform.list(kMembers, 3, {{u32(1), i32(150), u32(kEth1)}});
  EXPECT_BROKEN_MODEL(verdict({100, 200}), "config_validate_comn", "(&mc.keys[2])->type == C_INT32");
  EXPECT_EQ(verdict({100, 140}), 0) << "the ifindex of a VLAN outside the range is not used";
}

class VlanManagerPortBasedTest : public AccessTest {
 protected:
  std::int32_t verdict() { return config_validate_vpn_access_vlm_port_based(sock(), tctx(), snapshot); }

  void record_changed_port_based(const std::string &interface) {
    record_port_based("vpws-group west", "vpn blue", interface);
    record_change("vpws-group west", "vpn blue", interface);
  }
};

constexpr const char *kPortBasedAssigned =
    "vpws-group west vpn blue interface eth-1 is already assigned to dot1q vlan 100 and can not be configured on a port-based VPN";

TEST_F(VlanManagerPortBasedTest, refuses_a_changed_port_based_vpn_on_a_member) {
  record_changed_port_based("eth-1");
  add_static_member(100, kEth1);
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.error(), kPortBasedAssigned);
}

TEST_F(VlanManagerPortBasedTest, accepts_it_on_a_port_that_is_no_member) {
  record_changed_port_based("eth-1");
  add_static_member(100, kEth2);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

TEST_F(VlanManagerPortBasedTest, names_the_first_member_in_table_order_and_the_first_vpn_in_key_order) {
  record_changed_port_based("eth-1");
  record_changed_port_based("eth-2");
  record_port_based("vpls-group north", "vpn red", "eth-2");
  record_change("vpls-group north", "vpn red", "eth-2");
  add_static_member(300, kEth1);
  add_static_member(200, kEth2);
  add_static_member(100, 999);
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-2 is already assigned to dot1q vlan 200 and can not be configured on a port-based VPN");
}

TEST_F(VlanManagerPortBasedTest, reads_nothing_without_a_changed_port_based_vpn) {
  add_static_member(100, kEth1);
  record_port_based("vpws-group west", "vpn blue", "eth-1");
  record_vlan("vpls-group north", "vpn red", "eth-1", 10);
  record_change("vpls-group north", "vpn red", "eth-1");
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(VlanManagerPortBasedTest, walks_the_table_entry_by_entry) {
  record_changed_port_based("eth-3");
  add_static_member(100, kEth1);
  add_static_member(200, kEth2);
  EXPECT_EQ(verdict(), 0);
  const std::string next = "maapi_get_next /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  EXPECT_EQ(platform.calls(),
            (Calls{std::string("maapi_init_cursor ") + kMembers, next, "limid_from_ifindex 1001",
                   "limid_to_intfname 101", next, "limid_from_ifindex 1002", "limid_to_intfname 102", next,
                   "maapi_destroy_cursor /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry"}));
}

TEST_F(VlanManagerPortBasedTest, accepts_when_a_read_fails) {
  record_changed_port_based("eth-1");
  add_static_member(100, kEth1);
  for (const char *function : {"maapi_init_cursor", "maapi_get_next", "limid_from_ifindex", "limid_to_intfname"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict(), 0);
    EXPECT_EQ(platform.error(), "");
  }
}

TEST_F(VlanManagerPortBasedTest, the_keys_of_a_member_are_integers) {
  record_changed_port_based("eth-1");
  platform.list(kMembers, 3, {{u32(1), i32(100), u32(kEth1)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[2])->type == C_INT32");
  platform.list(kMembers, 3, {{u32(1), u32(100), i32(kEth1)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[1])->type == C_INT32");
  platform.list(kMembers, 3, {{u32(1), u32(100), i32(kEth2)}});
  EXPECT_EQ(verdict(), 0) << "the VLAN is used only for the message";
}

}  // namespace
