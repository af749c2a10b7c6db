#include <new>

#include "config_validate_vpls/config_validate_vpls.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::enum_value;
using scripted::i32;
using scripted::text;
using scripted::u32;

class VplsAccessInterfacesTest : public AccessTest {
 protected:
  std::int32_t verdict() { return config_validate_vpls_access_dot1q(sock(), tctx(), snapshot, maximum, service_ports); }

  void expect_accepted() {
    EXPECT_EQ(verdict(), 0);
    EXPECT_EQ(platform.errors(), std::vector<std::string>{});
  }
  void expect_rejected(const std::string &message) {
    EXPECT_EQ(verdict(), -1);
    EXPECT_EQ(platform.errors(), std::vector<std::string>{message});
  }

  std::int32_t maximum = 16;
};

TEST_F(VplsAccessInterfacesTest, WithoutAccessInterfacesTheSnapshotStaysEmpty) {
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{}));
  const std::string list = kVplsAttachments;
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_init_cursor " + list, "maapi_get_next " + list, "maapi_destroy_cursor " + list}));
}

TEST_F(VplsAccessInterfacesTest, RecordsEveryAttachment) {
  add_changed(Vpls{.vpn = "red", .interface = "eth-1"});
  add(Vpls{.vpn = "green", .id = 2, .interface = "eth-2", .vlan = 100, .tls = 1});
  add(Vpls{.vpn = "black", .id = 3, .interface = "eth-2", .untagged = true, .ranges = {{10, 20}}});
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{
                            {"eth-1 vpls-group north vpn red", {{{0, 0}}, false}},
                            {"eth-2 vpls-group north vpn green", {{{100, 100}}, false}},
                            {"eth-2 vpls-group north vpn black", {{{0, 0}, {10, 20}}, true}},
                        }));
  EXPECT_EQ(snapshot.mop_map, (decltype(snapshot.mop_map){{{"vpls-group north", "vpn red", "eth-1"}, MOP_CREATED}}));
  EXPECT_EQ(snapshot.tls_map, (decltype(snapshot.tls_map){{{"vpls-group north", "vpn green"}, true}}));
}

TEST_F(VplsAccessInterfacesTest, AChangeAnywhereInTheBridgeDomainIsTheAttachmentsChange) {
  add(Vpls{.interface = "eth-1", .vlan = 100});
  add(Vpls{.interface = "eth-2", .vlan = 100});
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain/dot1q", MOP_VALUE_SET, u32(100));
  expect_accepted();
  EXPECT_EQ(snapshot.mop_map, (decltype(snapshot.mop_map){{{"vpls-group north", "vpn red", "eth-1"}, MOP_VALUE_SET},
                                                          {{"vpls-group north", "vpn red", "eth-2"}, MOP_VALUE_SET}}));
}

TEST_F(VplsAccessInterfacesTest, EverySettingButTwoIsTransparentLanService) {
  for (const auto &[setting, is_on] : std::map<int, bool>{{0, true}, {1, true}, {2, false}, {3, true}}) {
    SCOPED_TRACE(setting);
    snapshot = {};
    platform.list(kVplsAttachments, 4);
    add(Vpls{.tls = setting});
    expect_accepted();
    EXPECT_EQ(get_vpls_tls("vpls-group north", "vpn red", snapshot), is_on);
  }
}

TEST_F(VplsAccessInterfacesTest, TheElementMustHaveTheInterface) {
  add(Vpls{.interface = "eth-9"});
  expect_rejected("vpls-group north vpn red interface is not valid. Verify available interfaces");
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{}));
}

TEST_F(VplsAccessInterfacesTest, TheVpnMustNotHaveMoreThanTheMaximum) {
  for (const char *interface : {"eth-1", "eth-2", "eth-3"}) add(Vpls{.interface = interface, .vlan = 100});
  maximum = 3;
  expect_accepted();
  snapshot = {};
  maximum = 2;
  expect_rejected("Maximum number of access-interfaces has been exceeded. Attempt to configure 3 of 2 allowed");
}

TEST_F(VplsAccessInterfacesTest, AMaximumThatWasNeverReadRefusesEveryInterface) {
  add(Vpls{});
  maximum = -1;
  expect_rejected("Maximum number of access-interfaces has been exceeded. Attempt to configure 1 of -1 allowed");
}

TEST_F(VplsAccessInterfacesTest, AllInterfacesOfAVpnHaveAnEncapsulationOrNoneHas) {
  add(Vpls{.interface = "eth-1", .ranges = {{10, 20}}});
  add(Vpls{.interface = "eth-2", .untagged = true});
  expect_accepted();
  snapshot = {};
  add(Vpls{.interface = "eth-3", .vlan = 100});
  expect_rejected(
      "vpls-group north vpn red: with 'bridge-domain qinq', all access interfaces must have 'encapsulation dot1q'");
}

TEST_F(VplsAccessInterfacesTest, AChangedAttachmentIsNoMulticastRouterInterface) {
  add_router_interface(7, 1001);
  add(Vpls{});
  expect_accepted();
  snapshot = {};
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain", MOP_MODIFIED);
  expect_rejected("vpls-group north vpn red interface eth-1 is already assigned to multicast igmp snooping 7");
}

TEST_F(VplsAccessInterfacesTest, AChangedAttachmentsVlanIsNoStaticMembers) {
  add_static_member(100, 1001);
  add(Vpls{.vlan = 100});
  expect_accepted();
  snapshot = {};
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain", MOP_MODIFIED);
  expect_rejected(
      "vpls-group north vpn red interface eth-1 is already assigned to dot1q vlan 100. It must be configured to another dot1q");
}

TEST_F(VplsAccessInterfacesTest, TwoPortBasedVpnsMustNotShareAnInterface) {
  add(Vpls{.vpn = "green"});
  add(Vpls{.vpn = "red", .id = 2, .interface = "eth-2"});
  expect_accepted();
  snapshot = {};
  add(Vpls{.vpn = "yellow", .id = 3});
  expect_rejected(
      "vpls-group north vpn yellow & vpls-group north vpn green must not be configured to the same interface eth-1 on port-based VPNs");
}

TEST_F(VplsAccessInterfacesTest, TwoVpnsMustNotShareAVlanOfAnInterface) {
  record_vlan("vpws-group west", "vpn blue", "eth-1", 99);
  add(Vpls{.vlan = 100});
  expect_accepted();
  snapshot = {};
  record_vlan("vpws-group west", "vpn blue", "eth-1", 100);
  expect_rejected(
      "vpls-group north vpn red and vpws-group west vpn blue must not be configured with the same dot1q on interface eth-1");
}

TEST_F(VplsAccessInterfacesTest, AnAttachmentThatOccursTwiceConflictsWithItself) {
  add(Vpls{.id = 1, .vlan = 100});
  add(Vpls{.id = 2, .vlan = 100});
  expect_rejected(
      "vpls-group north vpn red and vpls-group north vpn red must not be configured with the same dot1q on interface eth-1");
}

TEST_F(VplsAccessInterfacesTest, AnEncapsulationIsCheckedAgainstTheBridgeDomain) {
  add(Vpls{.vlan = 100, .ranges = {{50, 150}}});
  expect_accepted();
  snapshot = {};
  add(Vpls{.interface = "eth-2", .vlan = 100, .ranges = {{100, 200}}});
  expect_rejected(
      "vpls-group north vpn red interface eth-2 must not be configured with the same dot1q 100 between bridge-domain and encapsulation minimum value in the dot1q-range [100-200]");
}

TEST_F(VplsAccessInterfacesTest, OneVpnMayHaveAnInterfaceUntagged) {
  add(Vpls{.vpn = "green", .ranges = {{10, 20}}});
  add(Vpls{.vpn = "red", .id = 2, .untagged = true});
  expect_accepted();
  snapshot = {};
  add(Vpls{.vpn = "yellow", .id = 3, .untagged = true});
  expect_rejected(
      "eth-1 encapsulation untagged cannot be set simultaneously in vpls-group north vpn yellow and vpls-group north vpn red");
}

TEST_F(VplsAccessInterfacesTest, AServicePortIsSharedOnlyByVlan) {
  add(Vpls{.vpn = "green", .interface = "service-port-1", .vlan = 100});
  add(Vpls{.vpn = "red", .id = 2, .interface = "service-port-1", .vlan = 200});
  expect_accepted();
  snapshot = {};
  service_ports.clear();
  add(Vpls{.vpn = "yellow", .id = 3, .interface = "service-port-1"});
  expect_rejected("service-port-1 cannot be used on port-based and VLAN based VPNs at the same time");
  EXPECT_EQ(service_ports, (std::unordered_map<std::string, bool>{{"service-port-1", false}}));
}

TEST_F(VplsAccessInterfacesTest, AServicePortOfTheVpwsWalkIsKnown) {
  service_ports = {{"service-port-1", true}};
  add(Vpls{.interface = "service-port-1", .vlan = 100});
  expect_rejected("service-port-1 cannot be used on port-based and VLAN based VPNs at the same time");
}

// Every rule would refuse; each row takes away the reason of the row before.
TEST_F(VplsAccessInterfacesTest, TheFirstFailingRuleDecidesTheMessage) {
  record("vpls-group north", "vpn red", "eth-2", VLAN_CFG_BASIC, {0, 0});
  record("vpws-group west", "vpn blue", "service-port-9", VLAN_CFG_ENCAP, {100, 100});
  service_ports = {{"service-port-9", true}};
  add_changed(Vpls{.interface = "service-port-9", .vlan = 100, .ranges = {{100, 200}}});
  add_router_interface(7, 1009);
  add_static_member(100, 1009);
  maximum = 0;

  const auto message = [this] {
    EXPECT_EQ(verdict(), -1);
    return platform.error();
  };
  EXPECT_EQ(message(), "vpls-group north vpn red interface is not valid. Verify available interfaces");
  platform.interface("service-port-9", 109, 1009);
  EXPECT_EQ(message(), "Maximum number of access-interfaces has been exceeded. Attempt to configure 1 of 0 allowed");
  maximum = 1;
  EXPECT_EQ(
      message(),
      "vpls-group north vpn red: with 'bridge-domain qinq', all access interfaces must have 'encapsulation dot1q'");
  snapshot.intf_map.erase("eth-2");
  EXPECT_EQ(message(),
            "vpls-group north vpn red interface service-port-9 is already assigned to multicast igmp snooping 7");
  platform.list(kRouterInterfaces, 2);
  EXPECT_EQ(
      message(),
      "vpls-group north vpn red interface service-port-9 is already assigned to dot1q vlan 100. It must be configured to another dot1q");
  platform.list(kMembers, 3);
  EXPECT_EQ(
      message(),
      "vpls-group north vpn red and vpws-group west vpn blue must not be configured with the same dot1q on interface service-port-9");
  snapshot = {};
  EXPECT_EQ(
      message(),
      "vpls-group north vpn red interface service-port-9 must not be configured with the same dot1q 100 between bridge-domain and encapsulation minimum value in the dot1q-range [100-200]");
  platform.list(bridge_domain(Vpls{}) + "/int-vpls-ac{service-port-9}/int-vpls-encap/int-vpls-encap-dot1q-range", 2,
                {{u32(101), u32(200)}});
  EXPECT_EQ(message(), "service-port-9 cannot be used on port-based and VLAN based VPNs at the same time");
}

TEST_F(VplsAccessInterfacesTest, ReadsInThisOrder) {
  add_static_member(50, 1002);
  add_router_interface(7, 1002);
  add_changed(Vpls{.vlan = 100, .untagged = true, .ranges = {{20, 30}}});
  expect_accepted();
  const std::string list = kVplsAttachments;
  const std::string vpn = "/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd";
  const std::string encap = vpn + "/int-vpls-ac{eth-1}/int-vpls-encap/int-vpls-encap-";
  const std::string router = "/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry";
  const std::string member = "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  EXPECT_EQ(platform.calls(),
            (Calls{
                "maapi_init_cursor " + list,
                "maapi_get_next " + list,
                "valid_intfname eth-1",
                "maapi_num_instances " + vpn + "/int-vpls-ac",
                "maapi_get_object " + vpn,
                "maapi_keypath_diff_iterate /mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain",
                "maapi_exists " + encap + "untagged",
                "maapi_get_enum_value_elem " + encap + "untagged",
                "maapi_num_instances " + encap + "dot1q-range",
                std::string("maapi_num_instances ") + kRouterInterfaces,
                "limid_from_intfname eth-1",
                "limid_to_ifindex 101",
                std::string("maapi_init_cursor ") + kRouterInterfaces,
                "maapi_get_objects " + router + " 64x2",
                "maapi_destroy_cursor " + router,
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

TEST_F(VplsAccessInterfacesTest, ABridgeDomainThatCannotBeReadHasNoVlanAndNoService) {
  add(Vpls{.vpn = "green", .interface = "eth-1", .vlan = 100, .tls = 1});
  add(Vpls{.vpn = "red", .id = 2, .interface = "eth-1", .vlan = 200, .tls = 1});
  fail_only("maapi_get_object", 2);
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{
                            {"eth-1 vpls-group north vpn green", {{{100, 100}}, false}},
                            {"eth-1 vpls-group north vpn red", {{{0, 0}}, false}},
                        }))
      << "nothing of the VPN before it";
  EXPECT_FALSE(get_vpls_tls("vpls-group north", "vpn red", snapshot));
}

// The paths of the count and of the bridge domain have the id as a signed number, those of the encapsulation have not:
// the VPN of an id that the application does not reach has no VLAN and no service, but an encapsulation.
TEST_F(VplsAccessInterfacesTest, TheBridgeDomainOfAnIdFromTwoToThe31OnIsNotFound) {
  add(Vpls{.id = 0x80000000, .vlan = 100, .tls = 1, .ranges = {{10, 20}}});
  maximum = 0;
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", {{{10, 20}}, true}}}));
  EXPECT_FALSE(get_vpls_tls("vpls-group north", "vpn red", snapshot));
  const std::string vpn = "/internal/int-vpls-group{north}/int-vpls-vpn{red -2147483648}/int-vpls-bd";
  EXPECT_EQ(calls_of({"maapi_get_object"}), Calls{"maapi_get_object " + vpn});
  EXPECT_EQ(calls_of({"maapi_num_instances"}).front(), "maapi_num_instances " + vpn + "/int-vpls-ac");
}

TEST_F(VplsAccessInterfacesTest, BridgeDomainValuesOfAnotherTypeCountAsUnset) {
  add(Vpls{});
  platform.object(bridge_domain(Vpls{}), {text("100"), text("1")});
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", {{{0, 0}}, false}}}));
  EXPECT_FALSE(get_vpls_tls("vpls-group north", "vpn red", snapshot));

  snapshot = {};
  platform.object(bridge_domain(Vpls{}), {u32(100), u32(1)});
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", {{{100, 100}}, false}}}));
  EXPECT_FALSE(get_vpls_tls("vpls-group north", "vpn red", snapshot));

  snapshot = {};
  platform.object(bridge_domain(Vpls{}), {i32(100), enum_value(1)});
  expect_accepted();
  EXPECT_TRUE(get_vpls_tls("vpls-group north", "vpn red", snapshot));
}

struct FaultCase {
  const char *function;
  std::size_t nth;
  std::map<std::string, Claims> recorded;
  bool is_changed;
};

constexpr const char *kRed = "eth-1 vpls-group north vpn red";

TEST_F(VplsAccessInterfacesTest, AFailedReadIsAsIfNothingWereThere) {
  add_changed(Vpls{.vlan = 100, .untagged = true, .ranges = {{20, 30}}});
  add_router_interface(7, 1002);
  const Claims all{{{0, 0}, {20, 30}, {100, 100}}, true};
  for (const FaultCase &row : {
           FaultCase{"maapi_init_cursor", 1, {}, false},
           FaultCase{"maapi_get_next", 1, {}, false},
           FaultCase{"maapi_get_next", 2, {{kRed, all}}, true},
           FaultCase{"maapi_num_instances", 1, {{kRed, all}}, true},
           FaultCase{"maapi_get_object", 1, {{kRed, {{{0, 0}, {20, 30}}, true}}}, true},
           FaultCase{"maapi_keypath_diff_iterate", 1, {{kRed, all}}, false},
           FaultCase{"maapi_exists", 1, {{kRed, {{{20, 30}, {100, 100}}, true}}}, true},
           FaultCase{"maapi_get_enum_value_elem", 1, {{kRed, {{{20, 30}, {100, 100}}, true}}}, true},
           FaultCase{"maapi_num_instances", 2, {{kRed, all}}, true},  // untagged is enough to look for ranges
           FaultCase{"maapi_num_instances", 3, {{kRed, all}}, true},  // router interfaces
           FaultCase{"limid_from_intfname", 1, {{kRed, all}}, true},
           FaultCase{"limid_to_ifindex", 1, {{kRed, all}}, true},
           FaultCase{"maapi_init_cursor", 2, {{kRed, all}}, true},
           FaultCase{"maapi_get_objects", 1, {{kRed, all}}, true},
           FaultCase{"maapi_exists", 2, {{kRed, all}}, true},
           // Nothing is recorded but the flag that the agreement of encapsulations has set.
           FaultCase{"maapi_init_cursor", 3, {{kRed, {{}, true}}}, true},
           FaultCase{"maapi_get_objects", 2, {{kRed, {{}, true}}}, true},
           FaultCase{"maapi_init_cursor", 4, {{kRed, all}}, true},
           FaultCase{"maapi_find_next", 1, {{kRed, all}}, true},
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

TEST_F(VplsAccessInterfacesTest, AFailedNameCheckRefuses) {
  add(Vpls{});
  fail_only("valid_intfname", 1);
  expect_rejected("vpls-group north vpn red interface is not valid. Verify available interfaces");
}

TEST_F(VplsAccessInterfacesTest, RangesThatCannotBeCountedLeaveByException) {
  add(Vpls{.ranges = {{20, 30}}});
  fail_only("maapi_num_instances", 3);
  EXPECT_THROW(verdict(), std::bad_array_new_length);
  EXPECT_EQ(platform.leaks(), std::vector<std::string>{});
  EXPECT_EQ(platform.error(), "");
}

TEST_F(VplsAccessInterfacesTest, TheKeysOfAnAttachmentHaveTheirTypes) {
  platform.list(kVplsAttachments, 4, {{u32(1), text("red"), u32(1), text("eth-1")}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpls", "(&mc.keys[0])->type == C_BUF");
  platform.list(kVplsAttachments, 4, {{text("north"), u32(1), u32(1), text("eth-1")}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpls", "(&mc.keys[1])->type == C_BUF");
  platform.list(kVplsAttachments, 4, {{text("north"), text("red"), i32(1), text("eth-1")}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpls", "(&mc.keys[2])->type == C_UINT32");
  platform.list(kVplsAttachments, 4, {{text("north"), text("red"), u32(1), u32(1)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpls", "(&mc.keys[3])->type == C_BUF");
}

TEST_F(VplsAccessInterfacesTest, TheIdIsUsedAfterTheNameWasFoundValid) {
  platform.list(kVplsAttachments, 4, {{text("north"), text("red"), i32(1), text("eth-9")}});
  expect_rejected("vpls-group north vpn red interface is not valid. Verify available interfaces");
}

}  // namespace
