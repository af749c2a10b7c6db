#include <new>

#include "config_validate_vpws/vpws_access_checks.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::i32;
using scripted::u32;

constexpr const char *kEncap = "/internal/int-vpws-intf-encap{west blue 7 eth-1}/";
constexpr const char *kRecord = "eth-1 vpws-group west vpn blue";

class VpwsAccessEncapsulationTest : public AccessTest {
 protected:
  std::int32_t verdict(std::uint32_t vlan, bool has_untagged, bool has_dot1q) {
    return config_validate_vpws_access_encap(sock(), tctx(), group, vpn, 7, interface, vlan, has_untagged, has_dot1q,
                                             snapshot);
  }
  void set_ranges(std::vector<scripted::Values> ranges) { platform.list(kRanges, 2, std::move(ranges)); }

  /// The cursor's entry as the walk hands it over.
  struct Entry : maapi_cursor {
    Entry() : maapi_cursor{} {
      n = 5;
      for (std::size_t i = 0; i < values.size(); ++i) keys[i] = scripted::borrowed(values[i]);
    }
    scripted::Values values{scripted::text("west"), scripted::text("blue"), u32(7), scripted::text("eth-1"), u32(0)};
  };

  const std::string kRanges = std::string(kEncap) + "int-vpws-encap-dot1q-range";
  const std::string kUntagged = std::string(kEncap) + "int-vpws-encap-untagged";
  std::string group = "vpws-group west";
  std::string vpn = "vpn blue";
  std::string interface = "eth-1";
};

TEST_F(VpwsAccessEncapsulationTest, ARangeIsAnEncapsulation) {
  EXPECT_FALSE(vpws_has_encapsulation_dot1q(sock(), tctx(), Entry()));
  set_ranges({{u32(10), u32(20)}});
  EXPECT_TRUE(vpws_has_encapsulation_dot1q(sock(), tctx(), Entry()));
  fail_only("maapi_num_instances", 1);
  EXPECT_FALSE(vpws_has_encapsulation_dot1q(sock(), tctx(), Entry()));
  EXPECT_EQ(platform.calls(), Calls{"maapi_num_instances " + kRanges});
}

TEST_F(VpwsAccessEncapsulationTest, UntaggedIsAnEncapsulation) {
  EXPECT_FALSE(vpws_has_encapsulation_untagged(sock(), tctx(), Entry()));
  platform.leaf(kUntagged, scripted::enum_value(2));
  EXPECT_FALSE(vpws_has_encapsulation_untagged(sock(), tctx(), Entry()));
  platform.leaf(kUntagged, scripted::enum_value(1));
  platform.forget_calls();
  EXPECT_TRUE(vpws_has_encapsulation_untagged(sock(), tctx(), Entry()));
  EXPECT_EQ(platform.calls(), (Calls{"maapi_exists " + kUntagged, "maapi_get_enum_value_elem " + kUntagged}));
}

struct RecordCase {
  const char *name;
  std::uint32_t vlan;
  bool untagged;
  Ranges ranges;
  Claims recorded;
};

void PrintTo(const RecordCase &row, std::ostream *out) { *out << row.name; }

class VpwsAccessRecordTest : public VpwsAccessEncapsulationTest, public ::testing::WithParamInterface<RecordCase> {};

TEST_P(VpwsAccessRecordTest, RecordsWhatTheAttachmentHolds) {
  const RecordCase &row = GetParam();
  add(Vpws{.vlan = row.vlan, .untagged = row.untagged, .ranges = row.ranges});
  EXPECT_EQ(verdict(row.vlan, row.untagged, !row.ranges.empty()), 0);
  EXPECT_EQ(platform.error(), "");
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kRecord, row.recorded}}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, VpwsAccessRecordTest,
    ::testing::Values(
        RecordCase{"port-based", 0, false, {}, {{{0, 0}}, false}},
        RecordCase{"basic VLAN", 100, false, {}, {{{100, 100}}, false}},
        RecordCase{"untagged", 0, true, {}, {{{0, 0}}, true}},
        RecordCase{"untagged, and the basic VLAN turns the flag off", 100, true, {}, {{{0, 0}, {100, 100}}, false}},
        RecordCase{"ranges", 0, false, {{10, 20}, {30, 30}}, {{{10, 20}, {30, 30}}, true}},
        RecordCase{"a range from zero", 0, false, {{0, 5}}, {{{0, 5}}, true}},
        RecordCase{"untagged, basic VLAN and range", 5, true, {{10, 20}}, {{{0, 0}, {5, 5}, {10, 20}}, true}},
        RecordCase{"a range that begins at the basic VLAN is absorbed by it",
                   100,
                   false,
                   {{100, 200}},
                   {{{100, 100}}, true}}));

TEST_F(VpwsAccessEncapsulationTest, WithoutAnEncapsulationNothingIsRead) {
  EXPECT_EQ(verdict(100, false, false), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(VpwsAccessEncapsulationTest, ARangeOfAChangedAttachmentIsNoStaticMembers) {
  set_ranges({{u32(10), u32(20)}});
  add_static_member(15, 1001);
  EXPECT_EQ(verdict(0, false, true), 0) << "unchanged";

  snapshot = {};
  record_change(group, vpn, interface);
  EXPECT_EQ(verdict(0, false, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpws-group west vpn blue interface eth-1 is already assigned to dot1q vlan 15. It must be configured to another dot1q");
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{}));
}

TEST_F(VpwsAccessEncapsulationTest, ARangeMustNotMeetAnotherVpns) {
  set_ranges({{u32(10), u32(20)}});
  record_vlan("vpls-group north", "vpn red", "eth-1", 21);
  EXPECT_EQ(verdict(0, false, true), 0);

  snapshot = {};
  record_vlan("vpls-group north", "vpn red", "eth-1", 20);
  EXPECT_EQ(verdict(0, false, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpws-group west vpn blue and vpls-group north vpn red must not be configured with the same dot1q on interface eth-1");
}

TEST_F(VpwsAccessEncapsulationTest, TheVlanManagerComesFirstAndUntaggedLast) {
  set_ranges({{u32(10), u32(20)}});
  record("vpls-group north", "vpn red", "eth-1", VLAN_CFG_ENCAP, {0, 0});
  record("vpls-group north", "vpn red", "eth-1", VLAN_CFG_ENCAP, {10, 10});
  record_change(group, vpn, interface);
  add_static_member(10, 1001);
  EXPECT_EQ(verdict(0, true, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpws-group west vpn blue interface eth-1 is already assigned to dot1q vlan 10. It must be configured to another dot1q");
  platform.list(kMembers, 3);
  EXPECT_EQ(verdict(0, true, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpws-group west vpn blue and vpls-group north vpn red must not be configured with the same dot1q on interface eth-1");
  set_ranges({{u32(11), u32(20)}});
  EXPECT_EQ(verdict(0, true, true), -1);
  EXPECT_EQ(
      platform.error(),
      "eth-1 encapsulation untagged cannot be set simultaneously in vpws-group west vpn blue and vpls-group north vpn red");
  EXPECT_EQ(verdict(0, false, true), 0) << "not untagged itself";
}

TEST_F(VpwsAccessEncapsulationTest, OneVpnMayHaveTheInterfaceUntagged) {
  EXPECT_EQ(config_validate_vpws_access_untagged(tctx(), group, vpn, interface, true, snapshot), 0);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kRecord, {{{0, 0}}, true}}}));

  std::string other = "vpn green";
  EXPECT_EQ(config_validate_vpws_access_untagged(tctx(), group, other, interface, false, snapshot), 0);
  EXPECT_EQ(config_validate_vpws_access_untagged(tctx(), group, other, interface, true, snapshot), -1);
  EXPECT_EQ(
      platform.errors(),
      std::vector<std::string>{
          "eth-1 encapsulation untagged cannot be set simultaneously in vpws-group west vpn green and vpws-group west vpn blue"});
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kRecord, {{{0, 0}}, true}}}));
}

TEST_F(VpwsAccessEncapsulationTest, RangesThatCannotBeReadAreAcceptedUnrecorded) {
  set_ranges({{u32(10), u32(20)}});
  for (const char *function : {"maapi_init_cursor", "maapi_get_objects"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict(10, true, true), 0);
    EXPECT_EQ(recorded(), (std::map<std::string, Claims>{}));
  }
}

TEST_F(VpwsAccessEncapsulationTest, AFailedCountLeavesByException) {
  set_ranges({{u32(10), u32(20)}});
  fail_only("maapi_num_instances", 1);
  EXPECT_THROW(verdict(5, false, true), std::bad_array_new_length);
  EXPECT_EQ(platform.calls(), Calls{"maapi_num_instances " + kRanges}) << "before the cursor is opened";
}

TEST_F(VpwsAccessEncapsulationTest, BoundsAreNumbersWithoutSign) {
  set_ranges({{i32(10), u32(20)}});
  EXPECT_BROKEN_MODEL(verdict(5, false, true), "config_validate_vpws", "(&v[0])->type == C_UINT32");
  set_ranges({{u32(10), i32(20)}});
  EXPECT_BROKEN_MODEL(verdict(5, false, true), "config_validate_vpws", "(&v[1])->type == C_UINT32");
}

TEST_F(VpwsAccessEncapsulationTest, ThePathsAreCutAt511Characters) {
  interface = std::string(600, 'i');
  EXPECT_THROW(verdict(5, false, true), std::bad_array_new_length) << "what is left is no path";
  EXPECT_EQ(platform.calls(),
            Calls{"maapi_num_instances " + ("/internal/int-vpws-intf-encap{west blue 7 " + interface).substr(0, 511)});
}

}  // namespace
