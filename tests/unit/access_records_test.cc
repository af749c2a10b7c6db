#include "config_validate_comn/snapshot/access_records.h"

#include <gtest/gtest.h>

#include "tests/support/access_printers.h"

namespace {

using Ranges = std::vector<st_acc_dot1q_range_t>;

struct RangeOrderCase {
  st_acc_dot1q_range_t a;
  st_acc_dot1q_range_t b;
  bool a_is_less;
  bool b_is_less;
};

const std::vector<RangeOrderCase> range_order_cases{
    {{5, 9}, {6, 7}, true, false},
    {{5, 30}, {6, 6}, true, false},
    {{10, 20}, {30, 40}, true, false},
    // Ranges with one minimum are equivalent.
    {{5, 9}, {5, 9}, false, false},
    {{5, 9}, {5, 30}, false, false},
    {{10, 10}, {10, 20}, false, false},
    {{0, 0}, {0, 7}, false, false},
    {{0, 0}, {1, 1}, true, false},
    {{4094, 4094}, {4095, 4095}, true, false},
    // A maximum below the other's minimum sorts first, also within one minimum.
    {{5, 0}, {5, 9}, true, false},
    {{5, 4}, {5, 5}, true, false},
};

TEST(RangeOrderTest, compares_with_the_minimum_of_the_right_hand_range) {
  for (const RangeOrderCase &row : range_order_cases) {
    EXPECT_EQ(row.a < row.b, row.a_is_less) << row.a << " < " << row.b;
    EXPECT_EQ(row.b < row.a, row.b_is_less) << row.b << " < " << row.a;
  }
}

TEST(RangeOrderTest, a_set_keeps_the_first_range_of_a_minimum) {
  const std::set<st_acc_dot1q_range_t> wide_last{{5, 9}, {5, 30}, {6, 7}};
  EXPECT_EQ(Ranges(wide_last.begin(), wide_last.end()), (Ranges{{5, 9}, {6, 7}}));
  const std::set<st_acc_dot1q_range_t> wide_first{{6, 7}, {5, 30}, {5, 9}};
  EXPECT_EQ(Ranges(wide_first.begin(), wide_first.end()), (Ranges{{5, 30}, {6, 7}}));
}

TEST(RangeTest, is_without_vlan_when_both_ends_are_zero) {
  EXPECT_TRUE(is_without_vlan({0, 0}));
  EXPECT_FALSE(is_without_vlan({0, 1}));
  EXPECT_FALSE(is_without_vlan({1, 0}));
  EXPECT_FALSE(is_without_vlan({1, 1}));
}

struct KeyOrderCase {
  group_vpn_id_t lesser;
  group_vpn_id_t greater;
};

const std::vector<KeyOrderCase> key_order_cases{
    {{"vpls-group A", "vpn Z", VPN_TYPE_VPLS}, {"vpls-group B", "vpn A", VPN_TYPE_VPLS}},
    {{"vpls-group A", "vpn X", VPN_TYPE_VPLS}, {"vpws-group A", "vpn X", VPN_TYPE_VPWS}},
    {{"vpls-group A", "vpn X", VPN_TYPE_VPLS}, {"vpls-group A", "vpn Y", VPN_TYPE_VPWS}},
    {{"vpls-group A", "vpn X", VPN_TYPE_VPWS}, {"vpls-group A", "vpn X", VPN_TYPE_VPLS}},
    {{"vpls-group A", "vpn 10", VPN_TYPE_VPLS}, {"vpls-group A", "vpn 9", VPN_TYPE_VPLS}},
};

TEST(KeyOrderTest, is_group_then_vpn_then_type) {
  for (const KeyOrderCase &row : key_order_cases) {
    SCOPED_TRACE(::testing::Message() << row.lesser << " and " << row.greater);
    EXPECT_TRUE(row.lesser < row.greater);
    EXPECT_FALSE(row.greater < row.lesser);
    EXPECT_FALSE(row.lesser < row.lesser);
    EXPECT_FALSE(row.lesser == row.greater);
    EXPECT_TRUE(row.lesser != row.greater);
    EXPECT_TRUE(row.lesser == group_vpn_id_t(row.lesser));
    EXPECT_FALSE(row.lesser != group_vpn_id_t(row.lesser));
  }
}

struct KeyTypeCase {
  const char *group;
  vpn_type_t type;
};

const std::vector<KeyTypeCase> key_type_cases{
    {"vpls-group A", VPN_TYPE_VPLS},
    {"vpws-group A", VPN_TYPE_VPWS},
    {"vpls-group ", VPN_TYPE_VPLS},
    {"vpls-group", VPN_TYPE_VPWS},
    {"VPLS-GROUP A", VPN_TYPE_VPWS},
    {"", VPN_TYPE_VPWS},
    // The keyword counts anywhere.
    {"vpws-group vpls-group A", VPN_TYPE_VPLS},
    {"vpws-group xvpls-group ", VPN_TYPE_VPLS},
};

TEST(KeyTest, takes_the_type_from_the_groups_name) {
  for (const KeyTypeCase &row : key_type_cases) {
    EXPECT_EQ(make_group_vpn_id(row.group, "vpn X"), (group_vpn_id_t{row.group, "vpn X", row.type})) << row.group;
  }
}

TEST(KeyTest, starts_with_empty_names) {
  const group_vpn_id_t key;
  EXPECT_EQ(key.group_name, "");
  EXPECT_EQ(key.vpn_name, "");
}

TEST(RecordTest, starts_without_ranges) { EXPECT_TRUE(acc_intf_vpn_info_t{}.dot1q_ranges.empty()); }

TEST(EnumerationTest, numbers_are_the_data_models) {
  EXPECT_EQ(VPN_TYPE_VPWS, 0);
  EXPECT_EQ(VPN_TYPE_VPLS, 1);
  EXPECT_EQ(VLAN_CFG_BASIC, 0);
  EXPECT_EQ(VLAN_CFG_ENCAP, 1);
  EXPECT_EQ(VPN_MATCH_PORT_BASED, 0);
  EXPECT_EQ(VPN_MATCH_DOT1Q, 1);
}

}  // namespace
