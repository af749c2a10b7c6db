#include <new>

#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::i32;
using scripted::text;
using scripted::u32;

class VpwsAccessInterfacesTest : public AccessTest {
 protected:
  std::int32_t verdict() { return config_validate_vpws_access_dot1q(sock(), tctx(), snapshot, service_ports); }

  void expect_accepted() {
    EXPECT_EQ(verdict(), 0);
    EXPECT_EQ(platform.errors(), std::vector<std::string>{});
  }
  void expect_rejected(const std::string &message) {
    EXPECT_EQ(verdict(), -1);
    EXPECT_EQ(platform.errors(), std::vector<std::string>{message});
  }
};

TEST_F(VpwsAccessInterfacesTest, WithoutAccessInterfacesTheSnapshotStaysEmpty) {
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{}));
  const std::string list = kVpwsAttachments;
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_init_cursor " + list, "maapi_get_next " + list, "maapi_destroy_cursor " + list}));
}

TEST_F(VpwsAccessInterfacesTest, RecordsEveryAttachment) {
  add_changed(Vpws{.vpn = "blue", .interface = "eth-1"});
  add(Vpws{.vpn = "green", .id = 8, .interface = "eth-2", .vlan = 100});
  add(Vpws{.vpn = "black", .id = 9, .interface = "eth-2", .untagged = true, .ranges = {{10, 20}}});
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{
                            {"eth-1 vpws-group west vpn blue", {{{0, 0}}, false}},
                            {"eth-2 vpws-group west vpn green", {{{100, 100}}, false}},
                            {"eth-2 vpws-group west vpn black", {{{0, 0}, {10, 20}}, true}},
                        }));
  EXPECT_EQ(snapshot.mop_map, (decltype(snapshot.mop_map){{{"vpws-group west", "vpn blue", "eth-1"}, MOP_CREATED}}));
  EXPECT_EQ(snapshot.tls_map, decltype(snapshot.tls_map){});
}

TEST_F(VpwsAccessInterfacesTest, OnlyItsOwnEntryIsAnAttachmentsChange) {
  add(Vpws{.interface = "eth-1"});
  add(Vpws{.interface = "eth-2"});
  platform.change("/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}/access-interface{eth-2}/dot1q", MOP_VALUE_SET,
                  u32(5));
  expect_accepted();
  EXPECT_EQ(snapshot.mop_map, (decltype(snapshot.mop_map){{{"vpws-group west", "vpn blue", "eth-2"}, MOP_VALUE_SET}}));
}

// The word counts wherever it stands in the group's name: the change of such a VPWS group's attachment is looked for
// among the VPLS ones. Its encapsulation goes by the walk.
TEST_F(VpwsAccessInterfacesTest, AGroupThatHoldsTheOtherFamilysWordIsChangedWhereThatFamilyIs) {
  platform.entry(kVpwsAttachments, {text("my vpls-group "), text("blue"), u32(7), text("eth-1"), u32(5)});
  expect_accepted();
  EXPECT_EQ(
      calls_of({"maapi_keypath_diff_iterate", "maapi_exists"}),
      (Calls{
          "maapi_keypath_diff_iterate /mpls/l2vpn-config/l2vpn/vpls-group{my vpls-group }/vpn{blue}/bridge-domain/access-interface{eth-1}",
          "maapi_exists /internal/int-vpws-intf-encap{my vpls-group  blue 7 eth-1}/int-vpws-encap-untagged"}));
  EXPECT_EQ(recorded(),
            (std::map<std::string, Claims>{{"eth-1 vpws-group my vpls-group  vpn blue", {{{5, 5}}, false}}}));
}

TEST_F(VpwsAccessInterfacesTest, AnIdFromTwoToThe31OnIsWrittenWithoutSign) {
  add(Vpws{.id = 0x80000000, .vlan = 5, .ranges = {{10, 20}}});
  expect_accepted();
  EXPECT_EQ(recorded(),
            (std::map<std::string, Claims>{{"eth-1 vpws-group west vpn blue", {{{5, 5}, {10, 20}}, true}}}));
}

TEST_F(VpwsAccessInterfacesTest, TheElementMustHaveTheInterface) {
  add(Vpws{.interface = "eth-9"});
  expect_rejected("vpws-group west vpn blue interface is not valid. Verify available interfaces");
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{}));
}

TEST_F(VpwsAccessInterfacesTest, InterfacesOfAVpnNeedNotAgreeOnAnEncapsulation) {
  add(Vpws{.interface = "eth-1", .ranges = {{10, 20}}});
  add(Vpws{.interface = "eth-2", .vlan = 100});
  expect_accepted();
}

TEST_F(VpwsAccessInterfacesTest, ARouterInterfaceIsNotItsConcern) {
  add_router_interface(7, 1001);
  add_changed(Vpws{.vlan = 100});
  expect_accepted();
}

TEST_F(VpwsAccessInterfacesTest, AChangedAttachmentsVlanIsNoStaticMembers) {
  add_static_member(100, 1001);
  add(Vpws{.vlan = 100});
  expect_accepted();
  snapshot = {};
  platform.change("/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}/access-interface{eth-1}", MOP_MODIFIED);
  expect_rejected(
      "vpws-group west vpn blue interface eth-1 is already assigned to dot1q vlan 100. It must be configured to another dot1q");
}

TEST_F(VpwsAccessInterfacesTest, AChangedUntaggedAttachmentIsLookedUpAtVlanZero) {
  add_static_member(0, 1001);
  add_changed(Vpws{.untagged = true});
  expect_rejected(
      "vpws-group west vpn blue interface eth-1 is already assigned to dot1q vlan 0. It must be configured to another dot1q");
}

TEST_F(VpwsAccessInterfacesTest, TwoPortBasedVpnsMustNotShareAnInterface) {
  add(Vpws{.vpn = "blue"});
  add(Vpws{.vpn = "cyan", .id = 8, .interface = "eth-2"});
  expect_accepted();
  snapshot = {};
  add(Vpws{.vpn = "green", .id = 9});
  expect_rejected(
      "vpws-group west vpn green & vpws-group west vpn blue must not be configured to the same interface eth-1 on port-based VPNs");
}

TEST_F(VpwsAccessInterfacesTest, TwoVpnsMustNotShareAVlanOfAnInterface) {
  add(Vpws{.vpn = "blue", .vlan = 100});
  add(Vpws{.vpn = "cyan", .id = 8, .vlan = 101});
  expect_accepted();
  snapshot = {};
  add(Vpws{.vpn = "green", .id = 9, .vlan = 100});
  expect_rejected(
      "vpws-group west vpn green and vpws-group west vpn blue must not be configured with the same dot1q on interface eth-1");
}

TEST_F(VpwsAccessInterfacesTest, ARangeMayBeginAtTheBasicVlan) {
  add(Vpws{.vlan = 100, .ranges = {{100, 200}}});
  expect_accepted();
}

TEST_F(VpwsAccessInterfacesTest, OneVpnMayHaveAnInterfaceUntagged) {
  add(Vpws{.vpn = "blue", .untagged = true});
  add(Vpws{.vpn = "cyan", .id = 8, .ranges = {{10, 20}}});
  expect_accepted();
  snapshot = {};
  add(Vpws{.vpn = "green", .id = 9, .untagged = true});
  expect_rejected(
      "eth-1 encapsulation untagged cannot be set simultaneously in vpws-group west vpn green and vpws-group west vpn blue");
}

TEST_F(VpwsAccessInterfacesTest, ABasicVlanTakesTheUntaggedClaimBack) {
  add(Vpws{.vpn = "blue", .vlan = 100, .untagged = true});
  add(Vpws{.vpn = "green", .id = 9, .vlan = 200, .untagged = true});
  expect_accepted();
}

TEST_F(VpwsAccessInterfacesTest, AServicePortIsSharedOnlyByVlan) {
  add(Vpws{.vpn = "blue", .interface = "service-port-1", .vlan = 100});
  add(Vpws{.vpn = "cyan", .id = 8, .interface = "service-port-1", .vlan = 200});
  expect_accepted();
  EXPECT_EQ(service_ports, (std::unordered_map<std::string, bool>{{"service-port-1", false}}));
  snapshot = {};
  service_ports.clear();
  add(Vpws{.vpn = "green", .id = 9, .interface = "service-port-1"});
  expect_rejected("service-port-1 cannot be used on port-based and VLAN based VPNs at the same time");
}

// Every rule would refuse; each step takes away the reason of the one before.
TEST_F(VpwsAccessInterfacesTest, TheFirstFailingRuleDecidesTheMessage) {
  record("vpls-group north", "vpn red", "service-port-9", VLAN_CFG_ENCAP, {0, 0});
  record("vpls-group north", "vpn red", "service-port-9", VLAN_CFG_ENCAP, {100, 100});
  service_ports = {{"service-port-9", true}};
  add_changed(Vpws{.interface = "service-port-9", .vlan = 100, .untagged = true});
  add_static_member(100, 1009);

  const auto message = [this] {
    EXPECT_EQ(verdict(), -1);
    return platform.error();
  };
  EXPECT_EQ(message(), "vpws-group west vpn blue interface is not valid. Verify available interfaces");
  platform.interface("service-port-9", 109, 1009);
  EXPECT_EQ(
      message(),
      "vpws-group west vpn blue interface service-port-9 is already assigned to dot1q vlan 100. It must be configured to another dot1q");
  platform.list(kMembers, 3);
  EXPECT_EQ(
      message(),
      "vpws-group west vpn blue and vpls-group north vpn red must not be configured with the same dot1q on interface service-port-9");
  snapshot = {};
  record("vpls-group north", "vpn red", "service-port-9", VLAN_CFG_ENCAP, {0, 0});
  EXPECT_EQ(
      message(),
      "service-port-9 encapsulation untagged cannot be set simultaneously in vpws-group west vpn blue and vpls-group north vpn red");
  snapshot = {};
  EXPECT_EQ(message(), "service-port-9 cannot be used on port-based and VLAN based VPNs at the same time");
}

TEST_F(VpwsAccessInterfacesTest, ReadsInThisOrder) {
  add_static_member(50, 1002);
  add_changed(Vpws{.vlan = 100, .untagged = true, .ranges = {{20, 30}}});
  expect_accepted();
  const std::string list = kVpwsAttachments;
  const std::string encap = "/internal/int-vpws-intf-encap{west blue 7 eth-1}/int-vpws-encap-";
  const std::string member = "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  EXPECT_EQ(
      platform.calls(),
      (Calls{
          "maapi_init_cursor " + list,
          "maapi_get_next " + list,
          "valid_intfname eth-1",
          "maapi_keypath_diff_iterate /mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}/access-interface{eth-1}",
          "maapi_num_instances " + encap + "dot1q-range",
          "maapi_exists " + encap + "untagged",
          "maapi_get_enum_value_elem " + encap + "untagged",
          "limid_from_intfname eth-1",
          "limid_to_ifindex 101",
          std::string("maapi_exists ") + kMembers + "{1 100 1001}",
          "maapi_num_instances " + encap + "dot1q-range",
          "maapi_init_cursor " + encap + "dot1q-range",
          "maapi_get_objects " + encap + "dot1q-range 1x2",
          "limid_from_intfname eth-1",
          "limid_to_ifindex 101",
          std::string("maapi_init_cursor ") + kMembers,
          "maapi_find_next " + member + " same or after {1 20 0}",
          "maapi_destroy_cursor " + member,
          "maapi_destroy_cursor " + encap + "dot1q-range",
          "maapi_get_next " + list,
          "maapi_destroy_cursor " + list,
      }));
}

struct FaultCase {
  const char *function;
  std::size_t nth;
  std::map<std::string, Claims> recorded;
  bool is_changed;
};

constexpr const char *kBlue = "eth-1 vpws-group west vpn blue";

TEST_F(VpwsAccessInterfacesTest, AFailedReadIsAsIfNothingWereThere) {
  add_changed(Vpws{.vlan = 100, .untagged = true, .ranges = {{20, 30}}});
  const Claims all{{{0, 0}, {20, 30}, {100, 100}}, true};
  for (const FaultCase &row : {
           FaultCase{"maapi_init_cursor", 1, {}, false},
           FaultCase{"maapi_get_next", 1, {}, false},
           FaultCase{"maapi_get_next", 2, {{kBlue, all}}, true},
           FaultCase{"maapi_keypath_diff_iterate", 1, {{kBlue, all}}, false},
           FaultCase{"maapi_num_instances", 1, {{kBlue, all}}, true},  // untagged is enough to look for ranges
           FaultCase{"maapi_exists", 1, {{kBlue, {{{20, 30}, {100, 100}}, true}}}, true},
           FaultCase{"maapi_get_enum_value_elem", 1, {{kBlue, {{{20, 30}, {100, 100}}, true}}}, true},
           FaultCase{"limid_from_intfname", 1, {{kBlue, all}}, true},
           FaultCase{"limid_to_ifindex", 2, {{kBlue, all}}, true},
           FaultCase{"maapi_exists", 2, {{kBlue, all}}, true},
           FaultCase{"maapi_init_cursor", 2, {}, true},
           FaultCase{"maapi_get_objects", 1, {}, true},
           FaultCase{"maapi_init_cursor", 3, {{kBlue, all}}, true},
           FaultCase{"maapi_find_next", 1, {{kBlue, all}}, true},
       }) {
    SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.nth));
    snapshot = {};
    fail_only(row.function, row.nth);
    expect_accepted();
    EXPECT_EQ(recorded(), row.recorded);
    EXPECT_EQ(snapshot.mop_map.size(), row.is_changed ? 1U : 0U);
    EXPECT_EQ(platform.leaks(), std::vector<std::string>{});
  }
}

TEST_F(VpwsAccessInterfacesTest, AFailedNameCheckRefuses) {
  add(Vpws{});
  fail_only("valid_intfname", 1);
  expect_rejected("vpws-group west vpn blue interface is not valid. Verify available interfaces");
}

TEST_F(VpwsAccessInterfacesTest, RangesThatCannotBeCountedLeaveByException) {
  add(Vpws{.ranges = {{20, 30}}});
  fail_only("maapi_num_instances", 2);
  EXPECT_THROW(verdict(), std::bad_array_new_length);
  EXPECT_EQ(platform.leaks(), std::vector<std::string>{});
  EXPECT_EQ(platform.error(), "");
}

TEST_F(VpwsAccessInterfacesTest, TheKeysOfAnAttachmentHaveTheirTypes) {
  platform.list(kVpwsAttachments, 5, {{u32(1), text("blue"), u32(7), text("eth-1"), u32(0)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpws", "(&mc.keys[0])->type == C_BUF");
  platform.list(kVpwsAttachments, 5, {{text("west"), u32(1), u32(7), text("eth-1"), u32(0)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpws", "(&mc.keys[1])->type == C_BUF");
  platform.list(kVpwsAttachments, 5, {{text("west"), text("blue"), i32(7), text("eth-1"), u32(0)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpws", "(&mc.keys[2])->type == C_UINT32");
  platform.list(kVpwsAttachments, 5, {{text("west"), text("blue"), u32(7), u32(1), u32(0)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpws", "(&mc.keys[3])->type == C_BUF");
  platform.list(kVpwsAttachments, 5, {{text("west"), text("blue"), u32(7), text("eth-1"), i32(0)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpws", "(&mc.keys[4])->type == C_UINT32");
}

TEST_F(VpwsAccessInterfacesTest, TheVlanIsUsedAfterTheNameWasFoundValid) {
  platform.list(kVpwsAttachments, 5, {{text("west"), text("blue"), i32(7), text("eth-9"), i32(0)}});
  expect_rejected("vpws-group west vpn blue interface is not valid. Verify available interfaces");
}

TEST_F(VpwsAccessInterfacesTest, TheIdIsUsedAfterTheOtherRulesPassed) {
  platform.list(kVpwsAttachments, 5, {{text("west"), text("blue"), i32(7), text("eth-1"), u32(100)}});
  record_vlan("vpls-group north", "vpn red", "eth-1", 100);
  expect_rejected(
      "vpws-group west vpn blue and vpls-group north vpn red must not be configured with the same dot1q on interface eth-1");
}

}  // namespace
