#include "config_validate_comn/snapshot/access_index.h"

#include <gtest/gtest.h>

#include "config_validate_comn/snapshot/access_snapshot.h"
#include "tests/support/access_printers.h"

namespace {

const std::string kGroup = "vpls-group north";

class AccessIndexTest : public ::testing::Test {
 protected:
  static std::string vpn(int number) { return "vpn " + std::to_string(number); }
  static group_vpn_id_t key(int number) { return make_group_vpn_id(kGroup, vpn(number)); }
  static std::string interface(int number) { return "eth-" + std::to_string(number); }

  void record(int vpn_number, int interface_number, vlan_cfg_type_t source, st_acc_dot1q_range_t range) {
    set_vpn_access(kGroup, vpn(vpn_number), interface(interface_number), source, range, snapshot);
  }

  /// VPN i on eth-1 with VLAN 100 + i.
  void crowd_port(int vpns) {
    for (int i = 1; i <= vpns; ++i) {
      const auto vlan = static_cast<std::uint32_t>(100 + i);
      record(i, 1, VLAN_CFG_BASIC, {vlan, vlan});
    }
  }

  /// VPN 1 on eth-1 to eth-n.
  void spread_vpn(int interfaces, bool encap_cfg) {
    for (int i = 1; i <= interfaces; ++i) set_vpn_encap_cfg(kGroup, vpn(1), interface(i), encap_cfg, snapshot);
  }

  const port_index_t *port() const { return snapshot.index.find_port("eth-1", snapshot.intf_map).index; }

  using Vpns = std::set<group_vpn_id_t>;
  static Vpns vpns_of(const std::set<const intf_vpns_t::value_type *> &records) {
    Vpns vpns;
    for (const auto *record : records) vpns.insert(record->first);
    return vpns;
  }

  bool agrees(int vpn_number, bool encap_cfg) const {
    return snapshot.index.agrees_on_encapsulation(kGroup, vpn(vpn_number), encap_cfg, snapshot.intf_map);
  }

  st_val_acc_dot1q_vpn_t snapshot;
};

TEST_F(AccessIndexTest, a_port_is_found_once_it_has_a_record) {
  EXPECT_EQ(snapshot.index.find_port("eth-1", snapshot.intf_map).records, nullptr);
  crowd_port(1);
  EXPECT_EQ(snapshot.index.find_port("eth-1", snapshot.intf_map).records, &snapshot.intf_map.at("eth-1"));
  EXPECT_NE(port(), nullptr);
  EXPECT_EQ(snapshot.index.find_port("eth-2", snapshot.intf_map).records, nullptr);
}

TEST_F(AccessIndexTest, a_record_knows_all_its_ranges) {
  for (std::uint32_t i = 1; i <= 64; ++i) record(1, 1, VLAN_CFG_ENCAP, {2 * i, 2 * i});
  record(1, 1, VLAN_CFG_ENCAP, {1000, 1010});
  ASSERT_NE(port(), nullptr);
  EXPECT_TRUE(port()->vlans.meets({2, 2}));
  EXPECT_TRUE(port()->vlans.meets({1005, 1005}));
  EXPECT_FALSE(port()->vlans.meets({3, 3}));
}

TEST_F(AccessIndexTest, a_crowded_port_knows_every_vlan_on_it) {
  crowd_port(40);
  ASSERT_NE(port(), nullptr);
  EXPECT_EQ(port()->records, 40U);
  EXPECT_TRUE(port()->vlans.meets({101, 101}));
  EXPECT_TRUE(port()->vlans.meets({140, 140}));
  EXPECT_FALSE(port()->vlans.meets({1, 100}));
  EXPECT_FALSE(port()->vlans.meets({141, 4094}));
}

TEST_F(AccessIndexTest, a_dropped_range_claims_nothing) {
  crowd_port(40);
  record(5, 1, VLAN_CFG_ENCAP, {105, 2000});
  EXPECT_FALSE(port()->vlans.meets({141, 4094}));
  record(5, 1, VLAN_CFG_ENCAP, {106, 2000});
  EXPECT_TRUE(port()->vlans.meets({141, 4094}));
}

TEST_F(AccessIndexTest, a_crowded_port_follows_what_its_vpns_are) {
  crowd_port(40);
  EXPECT_EQ(vpns_of(port()->port_based), (Vpns{}));
  record(50, 1, VLAN_CFG_BASIC, {0, 0});
  EXPECT_EQ(vpns_of(port()->port_based), (Vpns{key(50)}));
  EXPECT_EQ(vpns_of(port()->untagged), (Vpns{}));
  record(50, 1, VLAN_CFG_ENCAP, {0, 0});
  EXPECT_EQ(vpns_of(port()->port_based), (Vpns{}));
  EXPECT_EQ(vpns_of(port()->untagged), (Vpns{key(50)}));
  record(50, 1, VLAN_CFG_BASIC, {200, 200});
  EXPECT_EQ(vpns_of(port()->port_based), (Vpns{}));
  EXPECT_EQ(vpns_of(port()->untagged), (Vpns{}));
}

TEST_F(AccessIndexTest, a_record_that_no_setter_made_is_walked_until_the_next_recording) {
  crowd_port(40);
  snapshot.intf_map["eth-1"][key(60)].dot1q_ranges.insert({2000, 2000});
  EXPECT_EQ(port(), nullptr);
  record(3, 1, VLAN_CFG_BASIC, {103, 103});
  ASSERT_NE(port(), nullptr);
  EXPECT_TRUE(port()->vlans.meets({2000, 2000}));
}

TEST_F(AccessIndexTest, a_port_that_was_filled_by_hand_is_walked) {
  for (int i = 1; i <= 40; ++i) snapshot.intf_map["eth-1"][key(i)].dot1q_ranges.insert({1, 1});
  EXPECT_EQ(port(), nullptr);
}

// It would point into the original's maps.
TEST_F(AccessIndexTest, a_copy_is_walked_until_the_next_recording) {
  crowd_port(40);
  st_val_acc_dot1q_vpn_t copy = snapshot;
  const access_index_t::port_t copied = copy.index.find_port("eth-1", copy.intf_map);
  EXPECT_EQ(copied.records, &copy.intf_map.at("eth-1"));
  EXPECT_EQ(copied.index, nullptr);
  set_vpn_access(kGroup, vpn(3), "eth-1", VLAN_CFG_ENCAP, {3000, 3000}, copy);
  ASSERT_NE(copy.index.find_port("eth-1", copy.intf_map).index, nullptr);
  EXPECT_TRUE(copy.index.find_port("eth-1", copy.intf_map).index->vlans.meets({3000, 3000}));
  EXPECT_FALSE(port()->vlans.meets({3000, 3000}));
}

TEST_F(AccessIndexTest, what_was_moved_keeps_its_index_and_leaves_an_empty_one) {
  crowd_port(40);
  const st_val_acc_dot1q_vpn_t moved = std::move(snapshot);
  EXPECT_NE(moved.index.find_port("eth-1", moved.intf_map).index, nullptr);
  snapshot = {};
  crowd_port(2);
  EXPECT_EQ(port()->records, 2U);
}

TEST_F(AccessIndexTest, a_change_that_no_setter_made_is_found) {
  set_vpn_mop(kGroup, vpn(1), "eth-1", 1, snapshot);
  snapshot.mop_map[{kGroup, vpn(2), "eth-1"}] = 3;
  EXPECT_EQ(get_vpn_mop(kGroup, vpn(1), "eth-1", snapshot), 1);
  EXPECT_EQ(get_vpn_mop(kGroup, vpn(2), "eth-1", snapshot), 3);
  set_vpn_mop(kGroup, vpn(2), "eth-1", 2, snapshot);
  set_vpn_mop(kGroup, vpn(3), "eth-1", 4, snapshot);
  EXPECT_EQ(get_vpn_mop(kGroup, vpn(2), "eth-1", snapshot), 3);
  EXPECT_EQ(get_vpn_mop(kGroup, vpn(3), "eth-1", snapshot), 4);
}

TEST_F(AccessIndexTest, one_interface_that_differs_is_known) {
  spread_vpn(40, false);
  EXPECT_TRUE(agrees(1, false));
  set_vpn_encap_cfg(kGroup, vpn(1), "eth-7", true, snapshot);
  EXPECT_FALSE(agrees(1, false));
  EXPECT_FALSE(agrees(1, true));
  set_vpn_encap_cfg(kGroup, vpn(1), "eth-7", false, snapshot);
  EXPECT_TRUE(agrees(1, false));
}

TEST_F(AccessIndexTest, vpns_are_counted_apart) {
  spread_vpn(40, false);
  set_vpn_encap_cfg(kGroup, vpn(2), "eth-7", true, snapshot);
  EXPECT_TRUE(agrees(1, false));
  EXPECT_TRUE(agrees(2, true));
  EXPECT_FALSE(agrees(3, true)) << "of a VPN without an interface nothing is known";
}

TEST_F(AccessIndexTest, an_interface_that_no_setter_made_is_uncertain_until_the_next_recording) {
  spread_vpn(40, false);
  snapshot.intf_map["eth-by-hand"][key(1)].encap_cfg = true;
  EXPECT_FALSE(agrees(1, false));
  set_vpn_encap_cfg(kGroup, vpn(2), "eth-1", true, snapshot);
  EXPECT_FALSE(agrees(1, false));
  EXPECT_TRUE(agrees(2, true));
}

}  // namespace
