#include "config_validate_comn/rules/uplink.h"

#include <stdexcept>

#include "config_validate_comn/config_validate_comn.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::text;
using scripted::u32;

constexpr const char *kWarning =
    "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces will not be able to encapsulate MPLS traffic";

class LdpUplinkTest : public AccessTest {
 protected:
  std::int32_t read() { return get_ldp_uplink(sock(), tctx(), uplinks); }

  val_ldp_uplink_map_t uplinks;
};

TEST_F(LdpUplinkTest, maps_vlans_to_interfaces) {
  add_uplink("l3-vlan20", 1, "20");
  add_uplink("l3-vlan10", 2, "10");
  EXPECT_EQ(read(), 0);
  EXPECT_EQ(uplinks, (val_ldp_uplink_map_t{{10, "l3-vlan10"}, {20, "l3-vlan20"}}));
  const std::string next = std::string("maapi_get_next ") + kUplinks;
  EXPECT_EQ(platform.calls(),
            (Calls{std::string("maapi_num_instances ") + kUplinks, std::string("maapi_init_cursor ") + kUplinks, next,
                   next, next, std::string("maapi_destroy_cursor ") + kUplinks}));
}

TEST_F(LdpUplinkTest, of_two_on_one_vlan_the_first_in_list_order_names_it) {
  add_uplink("l3-b", 1, "10");
  add_uplink("l3-a", 2, "10");
  read();
  EXPECT_EQ(uplinks, (val_ldp_uplink_map_t{{10, "l3-a"}}));
}

TEST_F(LdpUplinkTest, an_entry_that_is_in_the_map_stays) {
  uplinks = {{10, "before"}, {30, "other"}};
  add_uplink("l3-a", 1, "10");
  read();
  EXPECT_EQ(uplinks, (val_ldp_uplink_map_t{{10, "before"}, {30, "other"}}));
}

TEST_F(LdpUplinkTest, without_uplinks_the_map_is_emptied) {
  uplinks = {{10, "before"}};
  EXPECT_EQ(read(), 0);
  EXPECT_EQ(uplinks, val_ldp_uplink_map_t{});
  EXPECT_EQ(platform.calls(), Calls{std::string("maapi_num_instances ") + kUplinks});
}

TEST_F(LdpUplinkTest, a_failed_count_empties_the_map) {
  uplinks = {{10, "before"}};
  add_uplink("l3-a", 1, "20");
  fail_only("maapi_num_instances", 1);
  EXPECT_EQ(read(), 0);
  EXPECT_EQ(uplinks, val_ldp_uplink_map_t{});
}

TEST_F(LdpUplinkTest, a_failed_walk_leaves_what_was_read) {
  add_uplink("l3-a", 1, "10");
  add_uplink("l3-b", 2, "20");
  fail_only("maapi_init_cursor", 1);
  read();
  EXPECT_EQ(uplinks, val_ldp_uplink_map_t{});
  fail_only("maapi_get_next", 2);
  read();
  EXPECT_EQ(uplinks, (val_ldp_uplink_map_t{{10, "l3-a"}}));
}

struct VlanTextCase {
  const char *text;
  int vlan;
};

TEST_F(LdpUplinkTest, a_vlan_is_the_number_that_its_text_begins_with) {
  for (const VlanTextCase &row : {VlanTextCase{"10", 10}, {" 10", 10}, {"010", 10}, {"10x", 10}, {"-1", -1}}) {
    SCOPED_TRACE(row.text);
    uplinks.clear();
    platform.list(kUplinks, 3, {{text("l3"), u32(1), text(row.text)}});
    read();
    EXPECT_EQ(uplinks, (val_ldp_uplink_map_t{{row.vlan, "l3"}}));
  }
}

TEST_F(LdpUplinkTest, a_text_that_is_no_number_leaves_by_exception) {
  platform.list(kUplinks, 3, {{text("l3"), u32(1), text("none")}});
  EXPECT_THROW(read(), std::invalid_argument);
  platform.list(kUplinks, 3, {{text("l3"), u32(1), text("")}});
  EXPECT_THROW(read(), std::invalid_argument);
  platform.list(kUplinks, 3, {{text("l3"), u32(1), text("99999999999")}});
  EXPECT_THROW(read(), std::out_of_range);
  EXPECT_EQ(uplinks, val_ldp_uplink_map_t{});
}

TEST_F(LdpUplinkTest, name_and_vlan_are_texts) {
  platform.list(kUplinks, 3, {{u32(5), u32(1), text("10")}});
  EXPECT_BROKEN_MODEL(read(), "config_validate_comn", "(&mc.keys[0])->type == C_BUF");
  platform.list(kUplinks, 3, {{text("l3"), u32(1), u32(10)}});
  EXPECT_BROKEN_MODEL(read(), "config_validate_comn", "(&mc.keys[2])->type == C_BUF");
}

class UplinkWarningTest : public AccessTest {
 protected:
  std::int32_t verdict() { return config_validate_vpn_access_uplink(sock(), tctx(), snapshot); }

  void record_changed_vlan(const std::string &interface) {
    record_vlan("vpls-group north", "vpn red", interface, 100);
    record_change("vpls-group north", "vpn red", interface);
  }
};

TEST_F(UplinkWarningTest, warns_of_a_changed_access_interface_on_an_uplinks_vlan) {
  record_changed_vlan("eth-1");
  add_uplink("l3-a", 1, "10");
  add_static_member(10, 1001);
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{kWarning});
}

TEST_F(UplinkWarningTest, says_nothing_of_an_unchanged_access_interface) {
  record_vlan("vpls-group north", "vpn red", "eth-1", 100);
  add_uplink("l3-a", 1, "10");
  add_static_member(10, 1001);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
  EXPECT_EQ(platform.count("limid_from_intfname"), 0U);
}

TEST_F(UplinkWarningTest, says_nothing_when_the_port_is_no_member_of_the_uplinks_vlan) {
  record_changed_vlan("eth-1");
  add_uplink("l3-a", 1, "10");
  add_static_member(10, 1002);
  add_static_member(11, 1001);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

TEST_F(UplinkWarningTest, a_changed_port_based_attachment_counts_too) {
  record_port_based("vpws-group west", "vpn blue", "eth-1");
  record_change("vpws-group west", "vpn blue", "eth-1");
  add_uplink("l3-a", 1, "10");
  add_static_member(10, 1001);
  EXPECT_EQ(verdict(), -3);
}

TEST_F(UplinkWarningTest, without_uplinks_nothing_is_looked_up) {
  record_changed_vlan("eth-1");
  add_static_member(10, 1001);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{std::string("maapi_num_instances ") + kUplinks});
}

TEST_F(UplinkWarningTest, looks_up_interface_by_interface_and_vlan_by_vlan_until_a_hit) {
  record_vlan("vpls-group north", "vpn green", "eth-2", 5);
  record_changed_vlan("eth-2");
  record_changed_vlan("eth-1");
  record_changed_vlan("eth-3");
  add_uplink("l3-a", 1, "20");
  add_uplink("l3-b", 2, "10");
  add_static_member(10, 1002);
  EXPECT_EQ(verdict(), -3);
  const std::string exists = std::string("maapi_exists ") + kMembers;
  EXPECT_EQ(calls_of({"limid_from_intfname", "limid_to_ifindex", "maapi_exists", "confd_trans_seterr"}),
            (Calls{"limid_from_intfname eth-1", "limid_to_ifindex 101", exists + "{1 10 1001}", exists + "{1 20 1001}",
                   "limid_from_intfname eth-2", "limid_to_ifindex 102", exists + "{1 10 1002}",
                   std::string("confd_trans_seterr ") + kWarning}));
}

TEST_F(UplinkWarningTest, every_changed_vpn_of_an_interface_is_looked_up_anew) {
  for (const char *vpn : {"vpn green", "vpn red"}) {
    record_vlan("vpls-group north", vpn, "eth-1", 100);
    record_change("vpls-group north", vpn, "eth-1");
  }
  add_uplink("l3-a", 1, "10");
  EXPECT_EQ(verdict(), 0);
  const std::string exists = std::string("maapi_exists ") + kMembers + "{1 10 1001}";
  EXPECT_EQ(calls_of({"limid_from_intfname", "limid_to_ifindex", "maapi_exists"}),
            (Calls{"limid_from_intfname eth-1", "limid_to_ifindex 101", exists, "limid_from_intfname eth-1",
                   "limid_to_ifindex 101", exists}));
}

TEST_F(UplinkWarningTest, a_failed_read_draws_no_warning) {
  record_changed_vlan("eth-1");
  add_uplink("l3-a", 1, "10");
  add_static_member(10, 1001);
  for (const char *function : {"maapi_num_instances", "maapi_init_cursor", "maapi_get_next", "limid_from_intfname",
                               "limid_to_ifindex", "maapi_exists"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict(), 0);
    EXPECT_EQ(platform.error(), "");
  }
}

}  // namespace
