#include "config_validate_comn/snapshot/access_snapshot.h"

#include "tests/unit/access_test.h"

namespace {

class AccessSnapshotTest : public AccessTest {
 protected:
  const std::string group = "vpls-group north";
  const std::string vpn = "vpn red";
};

struct Recording {
  vlan_cfg_type_t source;
  st_acc_dot1q_range_t range;
};

struct RecordingCase {
  const char *name;
  std::vector<Recording> recordings;
  Claims claims;
};

const std::vector<RecordingCase> recording_cases{
    {"a basic VLAN", {{VLAN_CFG_BASIC, {100, 100}}}, {{{100, 100}}, false}},
    {"no basic VLAN: the whole port", {{VLAN_CFG_BASIC, {0, 0}}}, {{{0, 0}}, false}},
    {"untagged", {{VLAN_CFG_ENCAP, {0, 0}}}, {{{0, 0}}, true}},
    {"a range", {{VLAN_CFG_ENCAP, {30, 40}}}, {{{30, 40}}, true}},
    {"ranges out of order", {{VLAN_CFG_ENCAP, {30, 40}}, {VLAN_CFG_ENCAP, {10, 20}}}, {{{10, 20}, {30, 40}}, true}},
    {"the basic VLAN absorbs a range that starts there",
     {{VLAN_CFG_BASIC, {10, 10}}, {VLAN_CFG_ENCAP, {10, 20}}},
     {{{10, 10}}, true}},
    {"the first range of a minimum stays", {{VLAN_CFG_ENCAP, {5, 9}}, {VLAN_CFG_ENCAP, {5, 30}}}, {{{5, 9}}, true}},
    {"ranges that overlap each other stay",
     {{VLAN_CFG_ENCAP, {5, 9}}, {VLAN_CFG_ENCAP, {6, 7}}},
     {{{5, 9}, {6, 7}}, true}},
    {"a basic VLAN after untagged turns the flag off",
     {{VLAN_CFG_ENCAP, {0, 0}}, {VLAN_CFG_BASIC, {10, 10}}},
     {{{0, 0}, {10, 10}}, false}},
    {"a dropped range still decides the flag", {{VLAN_CFG_ENCAP, {7, 9}}, {VLAN_CFG_BASIC, {7, 7}}}, {{{7, 9}}, false}},
};

TEST_F(AccessSnapshotTest, an_attachment_holds_its_ranges_and_the_source_of_the_last) {
  for (const RecordingCase &row : recording_cases) {
    SCOPED_TRACE(row.name);
    snapshot = {};
    for (const Recording &one : row.recordings) {
      EXPECT_EQ(set_vpn_access(group, vpn, "eth-1", one.source, one.range, snapshot), 0);
    }
    EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", row.claims}}));
  }
}

TEST_F(AccessSnapshotTest, vpns_of_both_families_are_two_keys_of_one_interface) {
  record_vlan("vpws-group A", "vpn X", "eth-1", 20);
  record_vlan("vpls-group A", "vpn X", "eth-1", 10);
  ASSERT_EQ(snapshot.intf_map.size(), 1U);
  const intf_vpns_t &vpns = snapshot.intf_map.at("eth-1");
  ASSERT_EQ(vpns.size(), 2U);
  EXPECT_EQ(vpns.begin()->first.group_name, "vpls-group A");
  EXPECT_EQ(vpns.begin()->first.vpn_type, VPN_TYPE_VPLS);
  EXPECT_EQ(vpns.rbegin()->first.group_name, "vpws-group A");
  EXPECT_EQ(vpns.rbegin()->first.vpn_type, VPN_TYPE_VPWS);
}

TEST_F(AccessSnapshotTest, one_vpn_on_two_interfaces_is_two_attachments) {
  record_vlan(group, vpn, "eth-1", 10);
  record_vlan(group, vpn, "eth-2", 20);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", {{{10, 10}}, false}},
                                                       {"eth-2 vpls-group north vpn red", {{{20, 20}}, false}}}));
}

TEST_F(AccessSnapshotTest, the_flag_alone_creates_an_attachment_without_ranges) {
  set_vpn_encap_cfg(group, vpn, "eth-1", true, snapshot);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", {{}, true}}}));
}

TEST_F(AccessSnapshotTest, the_flag_alone_leaves_the_ranges) {
  record_vlan(group, vpn, "eth-1", 10);
  set_vpn_encap_cfg(group, vpn, "eth-1", true, snapshot);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", {{{10, 10}}, true}}}));
}

TEST_F(AccessSnapshotTest, the_first_change_operation_of_an_attachment_stays) {
  set_vpn_mop(group, vpn, "eth-1", MOP_CREATED, snapshot);
  set_vpn_mop(group, vpn, "eth-1", MOP_MODIFIED, snapshot);
  EXPECT_EQ(get_vpn_mop(group, vpn, "eth-1", snapshot), MOP_CREATED);
}

TEST_F(AccessSnapshotTest, an_operation_that_is_none_stays_too) {
  set_vpn_mop(group, vpn, "eth-1", 0, snapshot);
  set_vpn_mop(group, vpn, "eth-1", MOP_CREATED, snapshot);
  EXPECT_EQ(get_vpn_mop(group, vpn, "eth-1", snapshot), 0);
}

TEST_F(AccessSnapshotTest, an_attachment_without_a_change_operation_has_none) {
  set_vpn_mop(group, vpn, "eth-1", MOP_CREATED, snapshot);
  EXPECT_EQ(get_vpn_mop(group, vpn, "eth-2", snapshot), 0);
  EXPECT_EQ(get_vpn_mop(group, "vpn blue", "eth-1", snapshot), 0);
  EXPECT_EQ(get_vpn_mop("vpls-group south", vpn, "eth-1", snapshot), 0);
  EXPECT_EQ(snapshot.mop_map.size(), 1U);
}

TEST_F(AccessSnapshotTest, a_recorded_vpn_is_a_transparent_lan_service_whatever_its_setting) {
  for (const std::int32_t setting : {0, 1, 2, -1}) {
    SCOPED_TRACE(setting);
    snapshot = {};
    set_vpls_tls(group, vpn, setting, snapshot);
    EXPECT_TRUE(get_vpls_tls(group, vpn, snapshot));
    EXPECT_FALSE(get_vpls_tls(group, "vpn blue", snapshot));
    EXPECT_FALSE(get_vpls_tls("vpls-group south", vpn, snapshot));
  }
}

TEST_F(AccessSnapshotTest, a_vpn_that_is_already_in_the_map_keeps_its_entry) {
  snapshot.tls_map[{group, vpn}] = false;
  set_vpls_tls(group, vpn, 1, snapshot);
  EXPECT_FALSE(get_vpls_tls(group, vpn, snapshot));
}

}  // namespace
