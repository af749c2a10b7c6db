#include "config_validate_comn/snapshot/snapshot_queries.h"

#include "tests/support/access_printers.h"
#include "tests/unit/access_test.h"

namespace {

const group_vpn_id_t kUntouched{"untouched", "untouched", VPN_TYPE_VPWS};
const group_vpn_id_t kVpnA{"vpls-group A", "vpn A", VPN_TYPE_VPLS};
const group_vpn_id_t kVpnB{"vpws-group B", "vpn B", VPN_TYPE_VPWS};

class SnapshotQueriesTest : public AccessTest {
 protected:
  void record_ranges(const group_vpn_id_t &vpn, const Ranges &ranges) {
    for (const auto &[first, last] : ranges) {
      record(vpn.group_name, vpn.vpn_name, "eth-1", VLAN_CFG_ENCAP, {first, last});
    }
  }
  void record_port_based_vpn(const group_vpn_id_t &vpn) { record_port_based(vpn.group_name, vpn.vpn_name, "eth-1"); }
  void record_untagged_vpn(const group_vpn_id_t &vpn) {
    record(vpn.group_name, vpn.vpn_name, "eth-1", VLAN_CFG_ENCAP, {0, 0});
  }

  /// VPNs "vpn Z1" and on of vpls-group Z on eth-1 with a VLAN of their own each: more than are walked.
  void crowd_port() {
    for (std::uint32_t i = 1; i <= 20; ++i) record_vlan("vpls-group Z", "vpn Z" + std::to_string(i), "eth-1", 9000 + i);
  }

  group_vpn_id_t other = kUntouched;
};

struct OverlapCase {
  const char *name;
  Ranges of_a;
  Ranges of_b;
  st_acc_dot1q_range_t range;
  const group_vpn_id_t *vpn;  ///< null: no overlap
};

const std::vector<OverlapCase> overlap_cases{
    {"both overlap: the first key is named", {{150, 150}}, {{190, 300}}, {100, 200}, &kVpnA},
    {"only the second overlaps", {{250, 250}}, {{190, 300}}, {100, 200}, &kVpnB},
    {"shared bound", {{20, 30}}, {}, {10, 20}, &kVpnA},
    {"next to it", {{21, 30}}, {}, {10, 20}, nullptr},
    {"shared lower bound", {{1, 10}}, {}, {10, 20}, &kVpnA},
    {"next below it", {{1, 9}}, {}, {10, 20}, nullptr},
    {"the second range of a record", {{1, 9}, {15, 15}}, {}, {10, 20}, &kVpnA},
    {"around", {{1, 4094}}, {}, {10, 20}, &kVpnA},
    {"a single VLAN", {{10, 10}}, {}, {10, 10}, &kVpnA},
    {"untagged overlaps nothing", {{0, 0}}, {{0, 0}}, {0, 0}, nullptr},
    {"nothing overlaps a record that is untagged", {{0, 0}}, {}, {1, 10}, nullptr},
    {"nor does a range from VLAN 0", {{0, 0}}, {}, {0, 10}, nullptr},
    {"untagged next to a range", {{0, 0}, {5, 5}}, {}, {1, 10}, &kVpnA},
    {"VLAN 0 inside two ranges", {{0, 5}}, {}, {0, 3}, &kVpnA},
    {"4095 and beyond", {{4095, 4100}}, {}, {4100, 4200}, &kVpnA},
    {"an asked minimum above its maximum", {{1, 4094}}, {}, {20, 10}, nullptr},
    {"a recorded minimum above its maximum", {{20, 10}}, {}, {1, 4094}, nullptr},
};

TEST_F(SnapshotQueriesTest, a_range_overlaps_the_first_vpn_that_holds_one_of_its_vlans) {
  for (const bool crowded : {false, true}) {
    for (const OverlapCase &row : overlap_cases) {
      SCOPED_TRACE(::testing::Message() << row.name << (crowded ? " on a crowded port" : ""));
      snapshot = {};
      if (crowded) crowd_port();
      record_ranges(kVpnA, row.of_a);
      record_ranges(kVpnB, row.of_b);

      other = kUntouched;
      EXPECT_EQ(has_vpn_dot1q_range_overlap("eth-1", row.range, snapshot, other), row.vpn != nullptr);
      EXPECT_EQ(other, row.vpn != nullptr ? *row.vpn : kUntouched);
    }
  }
}

TEST_F(SnapshotQueriesTest, a_range_also_overlaps_its_own_vpn) {
  record_vlan(kVpnA.group_name, kVpnA.vpn_name, "eth-1", 100);
  EXPECT_TRUE(has_vpn_dot1q_range_overlap("eth-1", {100, 200}, snapshot, other));
  EXPECT_EQ(other, kVpnA);
}

TEST_F(SnapshotQueriesTest, the_overlapping_vpns_type_follows_from_its_group) {
  snapshot.intf_map["eth-1"][{"vpls-group A", "vpn A", VPN_TYPE_VPWS}].dot1q_ranges.insert({5, 5});
  EXPECT_TRUE(has_vpn_dot1q_range_overlap("eth-1", {5, 5}, snapshot, other));
  EXPECT_EQ(other, kVpnA);
}

TEST_F(SnapshotQueriesTest, an_interface_that_is_not_in_the_snapshot_has_nothing) {
  record_port_based_vpn(kVpnA);
  record_change(kVpnA.group_name, kVpnA.vpn_name, "eth-2");
  EXPECT_FALSE(has_vpn_dot1q_range_overlap("eth-2", {1, 4094}, snapshot, other));
  EXPECT_FALSE(has_port_based_vpn_in_interface(snapshot, "eth-2", other));
  EXPECT_FALSE(has_modified_port_based_vpn_in_interface(snapshot, "eth-2", other));
  EXPECT_FALSE(has_encapsulation_untagged_in_interface("eth-2", snapshot, other));
  EXPECT_FALSE(has_vlan_based_vpn_in_interface(snapshot.intf_map, "eth-2"));
  EXPECT_EQ(other, kUntouched);
}

TEST_F(SnapshotQueriesTest, the_port_based_vpn_of_an_interface_is_the_first) {
  for (const bool crowded : {false, true}) {
    SCOPED_TRACE(crowded ? "crowded port" : "few VPNs");
    snapshot = {};
    if (crowded) crowd_port();
    record_untagged_vpn(kVpnA);
    other = kUntouched;
    EXPECT_FALSE(has_port_based_vpn_in_interface(snapshot, "eth-1", other));
    EXPECT_EQ(other, kUntouched);
    record_port_based_vpn(kVpnB);
    EXPECT_TRUE(has_port_based_vpn_in_interface(snapshot, "eth-1", other));
    EXPECT_EQ(other, kVpnB);
    record_port_based_vpn(kVpnA);
    EXPECT_TRUE(has_port_based_vpn_in_interface(snapshot, "eth-1", other));
    EXPECT_EQ(other, kVpnA);
  }
}

TEST_F(SnapshotQueriesTest, the_modified_port_based_vpn_of_an_interface_is_the_first_that_changed) {
  for (const bool crowded : {false, true}) {
    SCOPED_TRACE(crowded ? "crowded port" : "few VPNs");
    snapshot = {};
    if (crowded) crowd_port();
    record_port_based_vpn(kVpnA);
    record_port_based_vpn(kVpnB);
    record_change("vpls-group Z", "vpn Z1", "eth-1");
    record_change(kVpnB.group_name, kVpnB.vpn_name, "eth-2");
    other = kUntouched;
    EXPECT_FALSE(has_modified_port_based_vpn_in_interface(snapshot, "eth-1", other));
    EXPECT_FALSE(has_modified_port_based_vpn(snapshot));
    EXPECT_EQ(other, kUntouched);
    record_change(kVpnB.group_name, kVpnB.vpn_name, "eth-1");
    EXPECT_TRUE(has_modified_port_based_vpn_in_interface(snapshot, "eth-1", other));
    EXPECT_TRUE(has_modified_port_based_vpn(snapshot));
    EXPECT_EQ(other, kVpnB);
  }
}

TEST_F(SnapshotQueriesTest, a_change_operation_of_none_is_no_change) {
  record_port_based_vpn(kVpnA);
  set_vpn_mop(kVpnA.group_name, kVpnA.vpn_name, "eth-1", 0, snapshot);
  EXPECT_FALSE(has_modified_port_based_vpn_in_interface(snapshot, "eth-1", other));
  EXPECT_FALSE(has_modified_port_based_vpn(snapshot));
}

TEST_F(SnapshotQueriesTest, a_changed_vlan_based_vpn_is_no_modified_port_based_one) {
  record_vlan(kVpnA.group_name, kVpnA.vpn_name, "eth-1", 5);
  record_change(kVpnA.group_name, kVpnA.vpn_name, "eth-1");
  EXPECT_FALSE(has_modified_port_based_vpn_in_interface(snapshot, "eth-1", other));
  EXPECT_FALSE(has_modified_port_based_vpn(snapshot));
}

TEST_F(SnapshotQueriesTest, the_untagged_vpn_of_an_interface_is_the_first) {
  for (const bool crowded : {false, true}) {
    SCOPED_TRACE(crowded ? "crowded port" : "few VPNs");
    snapshot = {};
    if (crowded) crowd_port();
    record_port_based_vpn(kVpnA);
    other = kUntouched;
    EXPECT_FALSE(has_encapsulation_untagged_in_interface("eth-1", snapshot, other));
    EXPECT_EQ(other, kUntouched);
    record_untagged_vpn(kVpnB);
    EXPECT_TRUE(has_encapsulation_untagged_in_interface("eth-1", snapshot, other));
    EXPECT_EQ(other, kVpnB);
    record_untagged_vpn(kVpnA);
    EXPECT_TRUE(has_encapsulation_untagged_in_interface("eth-1", snapshot, other));
    EXPECT_EQ(other, kVpnA);
  }
}

TEST_F(SnapshotQueriesTest, a_basic_vlan_after_the_untagged_claim_ends_it) {
  record_untagged_vpn(kVpnA);
  record_vlan(kVpnA.group_name, kVpnA.vpn_name, "eth-1", 5);
  EXPECT_FALSE(has_encapsulation_untagged_in_interface("eth-1", snapshot, other));
}

TEST_F(SnapshotQueriesTest, an_interface_with_port_based_vpns_alone_has_no_vlan_based_one) {
  record_port_based_vpn(kVpnA);
  record_port_based_vpn(kVpnB);
  EXPECT_FALSE(has_vlan_based_vpn_in_interface(snapshot.intf_map, "eth-1"));
  record_untagged_vpn(kVpnB);
  EXPECT_TRUE(has_vlan_based_vpn_in_interface(snapshot.intf_map, "eth-1")) << "an untagged VPN is not port-based";
}

TEST_F(SnapshotQueriesTest, a_vlan_based_vpn_counts_wherever_it_stands) {
  record_port_based_vpn(kVpnA);
  record_vlan(kVpnB.group_name, kVpnB.vpn_name, "eth-1", 5);
  EXPECT_TRUE(has_vlan_based_vpn_in_interface(snapshot.intf_map, "eth-1"));
}

TEST_F(SnapshotQueriesTest, one_encapsulation_anywhere_is_an_interface_with_encapsulation) {
  EXPECT_FALSE(has_interface_with_encapsulation(snapshot.intf_map));
  record_port_based_vpn(kVpnA);
  record_vlan(kVpnB.group_name, kVpnB.vpn_name, "eth-2", 5);
  EXPECT_FALSE(has_interface_with_encapsulation(snapshot.intf_map));
  record("vpls-group C", "vpn C", "eth-2", VLAN_CFG_ENCAP, {7, 9});
  EXPECT_TRUE(has_interface_with_encapsulation(snapshot.intf_map));
}

}  // namespace
