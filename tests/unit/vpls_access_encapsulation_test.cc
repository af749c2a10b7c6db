#include <new>

#include "config_validate_vpls/vpls_access_checks.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::i32;
using scripted::u32;

constexpr const char *kEncap =
    "/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd/int-vpls-ac{eth-1}/int-vpls-encap/";
constexpr const char *kRecord = "eth-1 vpls-group north vpn red";

class VplsAccessEncapsulationTest : public AccessTest {
 protected:
  std::int32_t verdict(std::uint32_t vlan, bool has_untagged, bool has_dot1q) {
    return config_validate_vpls_access_encap(sock(), tctx(), group, vpn, 1, interface, vlan, has_untagged, has_dot1q,
                                             snapshot);
  }
  void set_ranges(std::vector<scripted::Values> ranges) { platform.list(kRanges, 2, std::move(ranges)); }

  /// The cursor's entry as the walk hands it over.
  struct Entry : maapi_cursor {
    Entry() : maapi_cursor{} {
      n = 4;
      for (std::size_t i = 0; i < values.size(); ++i) keys[i] = scripted::borrowed(values[i]);
    }
    scripted::Values values{scripted::text("north"), scripted::text("red"), u32(1), scripted::text("eth-1")};
  };

  const std::string kRanges = std::string(kEncap) + "int-vpls-encap-dot1q-range";
  const std::string kUntagged = std::string(kEncap) + "int-vpls-encap-untagged";
  std::string group = "vpls-group north";
  std::string vpn = "vpn red";
  std::string interface = "eth-1";
};

TEST_F(VplsAccessEncapsulationTest, ARangeIsAnEncapsulation) {
  EXPECT_FALSE(vpls_has_encapsulation_dot1q(sock(), tctx(), Entry()));
  set_ranges({{u32(10), u32(20)}});
  EXPECT_TRUE(vpls_has_encapsulation_dot1q(sock(), tctx(), Entry()));
  fail_only("maapi_num_instances", 1);
  EXPECT_FALSE(vpls_has_encapsulation_dot1q(sock(), tctx(), Entry()));
  EXPECT_EQ(platform.calls(), Calls{"maapi_num_instances " + kRanges});
}

TEST_F(VplsAccessEncapsulationTest, UntaggedIsAnEncapsulation) {
  EXPECT_FALSE(vpls_has_encapsulation_untagged(sock(), tctx(), Entry()));
  platform.leaf(kUntagged, scripted::enum_value(2));
  EXPECT_FALSE(vpls_has_encapsulation_untagged(sock(), tctx(), Entry()));
  platform.leaf(kUntagged, scripted::enum_value(1));
  platform.forget_calls();
  EXPECT_TRUE(vpls_has_encapsulation_untagged(sock(), tctx(), Entry()));
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

class VplsAccessRecordTest : public VplsAccessEncapsulationTest, public ::testing::WithParamInterface<RecordCase> {};

TEST_P(VplsAccessRecordTest, RecordsWhatTheAttachmentHolds) {
  const RecordCase &row = GetParam();
  add(Vpls{.vlan = row.vlan, .untagged = row.untagged, .ranges = row.ranges});
  EXPECT_EQ(verdict(row.vlan, row.untagged, !row.ranges.empty()), 0);
  EXPECT_EQ(platform.error(), "");
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kRecord, row.recorded}}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, VplsAccessRecordTest,
    ::testing::Values(
        RecordCase{"port-based", 0, false, {}, {{{0, 0}}, false}},
        RecordCase{"bridge-domain VLAN", 100, false, {}, {{{100, 100}}, false}},
        RecordCase{"untagged", 0, true, {}, {{{0, 0}}, true}},
        RecordCase{
            "untagged, and the bridge-domain VLAN turns the flag off", 100, true, {}, {{{0, 0}, {100, 100}}, false}},
        RecordCase{"ranges", 0, false, {{10, 20}, {30, 30}}, {{{10, 20}, {30, 30}}, true}},
        RecordCase{"ranges and bridge-domain VLAN", 5, false, {{10, 20}}, {{{5, 5}, {10, 20}}, true}},
        RecordCase{"untagged, bridge-domain VLAN and range", 5, true, {{10, 20}}, {{{0, 0}, {5, 5}, {10, 20}}, true}},
        RecordCase{"a bridge-domain VLAN inside a range", 100, false, {{50, 150}}, {{{50, 150}, {100, 100}}, true}}));

TEST_F(VplsAccessEncapsulationTest, WithoutAnEncapsulationNothingIsRead) {
  EXPECT_EQ(verdict(100, false, false), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(VplsAccessEncapsulationTest, ARangeMustNotBeginAtTheBridgeDomainVlan) {
  set_ranges({{u32(50), u32(60)}, {u32(100), u32(200)}});
  EXPECT_EQ(verdict(100, false, true), -1);
  EXPECT_EQ(
      platform.errors(),
      std::vector<std::string>{
          "vpls-group north vpn red interface eth-1 must not be configured with the same dot1q 100 between bridge-domain and encapsulation minimum value in the dot1q-range [100-200]"});
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{})) << "no range of a refused attachment is recorded";
}

TEST_F(VplsAccessEncapsulationTest, WithoutABridgeDomainVlanARangeMustNotBeginAtZero) {
  set_ranges({{u32(0), u32(5)}});
  EXPECT_EQ(verdict(0, false, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-1 must not be configured with the same dot1q 0 between bridge-domain and encapsulation minimum value in the dot1q-range [0-5]");
}

TEST_F(VplsAccessEncapsulationTest, ARangeOfAChangedAttachmentIsNoStaticMembers) {
  set_ranges({{u32(10), u32(20)}});
  add_static_member(15, 1001);
  EXPECT_EQ(verdict(0, false, true), 0) << "unchanged";

  snapshot = {};
  record_change(group, vpn, interface);
  EXPECT_EQ(verdict(0, false, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-1 is already assigned to dot1q vlan 15. It must be configured to another dot1q");
}

TEST_F(VplsAccessEncapsulationTest, RangesAreNotCheckedForIgmpSnooping) {
  set_ranges({{u32(10), u32(20)}});
  add_router_interface(7, 1001);
  record_change(group, vpn, interface);
  EXPECT_EQ(verdict(0, false, true), 0);
}

TEST_F(VplsAccessEncapsulationTest, ARangeMustNotMeetAnotherVpns) {
  set_ranges({{u32(10), u32(20)}});
  record_vlan("vpws-group west", "vpn blue", "eth-1", 21);
  EXPECT_EQ(verdict(0, false, true), 0);

  snapshot = {};
  record_vlan("vpws-group west", "vpn blue", "eth-1", 20);
  EXPECT_EQ(verdict(0, false, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red and vpws-group west vpn blue must not be configured with the same dot1q on interface eth-1");
}

TEST_F(VplsAccessEncapsulationTest, TheBridgeDomainVlanComesBeforeTheOtherChecksOfARange) {
  set_ranges({{u32(10), u32(20)}});
  record_vlan("vpws-group west", "vpn blue", "eth-1", 10);
  record_change(group, vpn, interface);
  add_static_member(10, 1001);
  verdict(10, false, true);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-1 must not be configured with the same dot1q 10 between bridge-domain and encapsulation minimum value in the dot1q-range [10-20]");
  verdict(5, false, true);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-1 is already assigned to dot1q vlan 10. It must be configured to another dot1q");
}

TEST_F(VplsAccessEncapsulationTest, UntaggedIsComparedAfterTheRanges) {
  set_ranges({{u32(10), u32(20)}});
  record("vpws-group west", "vpn blue", "eth-1", VLAN_CFG_ENCAP, {0, 0});
  EXPECT_EQ(verdict(10, true, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-1 must not be configured with the same dot1q 10 between bridge-domain and encapsulation minimum value in the dot1q-range [10-20]");
  EXPECT_EQ(verdict(5, true, true), -1);
  EXPECT_EQ(
      platform.error(),
      "eth-1 encapsulation untagged cannot be set simultaneously in vpls-group north vpn red and vpws-group west vpn blue");
  EXPECT_EQ(verdict(5, false, true), 0) << "not untagged itself";
}

TEST_F(VplsAccessEncapsulationTest, RangesThatCannotBeReadAreAcceptedUnrecorded) {
  set_ranges({{u32(10), u32(20)}});
  for (const char *function : {"maapi_init_cursor", "maapi_get_objects"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict(10, true, true), 0);
    EXPECT_EQ(recorded(), (std::map<std::string, Claims>{}));
  }
}

TEST_F(VplsAccessEncapsulationTest, RangesThatWentBetweenTheCountAndTheFetchAreNeitherComparedNorRecorded) {
  set_ranges({{u32(10), u32(20)}});
  platform.count_as(kRanges, 2);
  EXPECT_EQ(verdict(5, false, true), 0);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{kRecord, {{{5, 5}, {10, 20}}, true}}}));
}

TEST_F(VplsAccessEncapsulationTest, AnIdFromTwoToThe31OnIsWrittenWithoutSign) {
  config_validate_vpls_access_encap(sock(), tctx(), group, vpn, 0x80000000, interface, 5, false, true, snapshot);
  ASSERT_FALSE(platform.calls().empty());
  EXPECT_EQ(
      platform.calls().front(),
      "maapi_num_instances /internal/int-vpls-group{north}/int-vpls-vpn{red 2147483648}/int-vpls-bd/int-vpls-ac{eth-1}/int-vpls-encap/int-vpls-encap-dot1q-range");
}

TEST_F(VplsAccessEncapsulationTest, AFailedCountLeavesByException) {
  set_ranges({{u32(10), u32(20)}});
  fail_only("maapi_num_instances", 1);
  EXPECT_THROW(verdict(5, false, true), std::bad_array_new_length);
  EXPECT_EQ(platform.calls(), Calls{"maapi_num_instances " + kRanges}) << "before the cursor is opened";
}

TEST_F(VplsAccessEncapsulationTest, ReadsTheRangesInThisOrder) {
  set_ranges({{u32(10), u32(20)}});
  EXPECT_EQ(verdict(5, true, true), 0);
  EXPECT_EQ(platform.calls(), (Calls{"maapi_num_instances " + kRanges, "maapi_init_cursor " + kRanges,
                                     "maapi_get_objects " + kRanges + " 1x2", "maapi_destroy_cursor " + kRanges}));
}

TEST_F(VplsAccessEncapsulationTest, BoundsAreNumbersWithoutSign) {
  set_ranges({{i32(10), u32(20)}});
  EXPECT_BROKEN_MODEL(verdict(5, false, true), "config_validate_vpls", "(&v[0])->type == C_UINT32");
  set_ranges({{u32(10), i32(20)}});
  EXPECT_BROKEN_MODEL(verdict(5, false, true), "config_validate_vpls", "(&v[1])->type == C_UINT32");
}

TEST_F(VplsAccessEncapsulationTest, ARangeIsLookedAtAfterTheOnesBeforeItPassed) {
  set_ranges({{u32(10), u32(20)}, {u32(30), i32(40)}});
  EXPECT_EQ(verdict(10, false, true), -1) << "the first range is refused";
  EXPECT_BROKEN_MODEL(verdict(5, false, true), "config_validate_vpls", "(&v[1])->type == C_UINT32");
}

TEST_F(VplsAccessEncapsulationTest, TheRangesPathIsCutAt511Characters) {
  interface = std::string(600, 'i');
  EXPECT_THROW(verdict(5, false, true), std::bad_array_new_length) << "what is left is no path";
  EXPECT_EQ(
      calls_of({"maapi_num_instances"}),
      Calls{
          "maapi_num_instances " +
          ("/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd/int-vpls-ac{" + interface).substr(0, 511)});
}

}  // namespace
