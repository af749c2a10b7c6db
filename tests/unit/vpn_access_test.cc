#include <new>

#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/platform_limits.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::text;
using scripted::u32;

constexpr const char *kUplinkWarning =
    "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces will not be able to encapsulate MPLS traffic";
constexpr const char *kTlsWarning =
    "All VPLS assigned to interface eth-3 will run as TLS since vpls-group north vpn-name red has port based TLS behavior";

class VpnAccessTest : public AccessTest {
 protected:
  VpnAccessTest() {
    platform_limits.vpls_max_ac_itf = 16;
    platform.limits.encapsulation_entries = 100;
    platform.limits.encapsulation_ranges = 100;
  }
  ~VpnAccessTest() override { platform_limits = {}; }

  std::int32_t verdict() { return config_validate_vpn_access(sock(), tctx(), nullptr, nullptr); }

  void expect(std::int32_t result, const std::string &message) {
    EXPECT_EQ(verdict(), result);
    EXPECT_EQ(platform.error(), message);
  }
};

TEST_F(VpnAccessTest, AcceptsAnElementWithoutVpns) {
  expect(0, "");
  const std::string vpws = kVpwsAttachments;
  const std::string vpls = kVplsAttachments;
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_init_cursor " + vpws, "maapi_get_next " + vpws, "maapi_destroy_cursor " + vpws,
                   "maapi_init_cursor " + vpls, "maapi_get_next " + vpls, "maapi_destroy_cursor " + vpls,
                   std::string("maapi_num_instances ") + kUplinks}));
}

// Every rule has a reason to stop the commit; each step takes away the reason of the one before.
TEST_F(VpnAccessTest, TheRulesRunInTheirOrder) {
  add_changed(Vpws{.interface = "eth-9"});
  add_changed(Vpls{.vpn = "green", .id = 2, .interface = "eth-8", .ranges = {{20, 30}}});
  add_changed(Vpls{.vpn = "red", .id = 1, .interface = "eth-3", .tls = 1});
  add_changed(Vpls{.vpn = "yellow", .id = 3, .interface = "service-port-1", .vlan = 40});
  platform.limits.encapsulation_entries = 0;
  add_static_member(60, 1003);
  add_uplink("l3-60", 1, "60");
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain/transparent-lan-service",
                  MOP_CREATED);

  expect(-1, "vpws-group west vpn blue interface is not valid. Verify available interfaces");
  platform.valid_name("eth-9");
  expect(-1, "vpls-group north vpn green interface is not valid. Verify available interfaces");
  platform.valid_name("eth-8");
  expect(
      -1,
      "Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure 1 of 0 allowed");
  platform.limits.encapsulation_entries = 1;
  expect(
      -1,
      "vpls-group north vpn red interface eth-3 is already assigned to dot1q vlan 60 and can not be configured on a port-based VPN");
  // A member that carries VPNs by VLAN only is no obstacle to the VLAN manager, but its VLAN is an uplink's.
  platform.list(kMembers, 3);
  add_static_member(60, 1011);
  expect(
      -1,
      "vpls-group north vpn yellow access-interface service-port-1 : VPLS VPN assigned to a service-port must have its bridge MTU lesser or equal than 2000.");
  platform.leaf("/internal/int-vpls-group{north}/int-vpls-vpn{yellow 3}/int-vpls-bd/int-vpls-bd-mtu", u32(2000));
  expect(-3, kUplinkWarning);
  platform.list(kUplinks, 3);
  expect(-3, kTlsWarning);
  platform.list("/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd/int-vpls-ac", 1);
  platform.forget_calls();
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.count("confd_trans_seterr"), 0U);
}

TEST_F(VpnAccessTest, ARejectionEndsTheCall) {
  add(Vpws{.interface = "eth-9"});
  add(Vpls{});
  add_uplink("l3-60", 1, "60");
  expect(-1, "vpws-group west vpn blue interface is not valid. Verify available interfaces");
  EXPECT_EQ(calls_of({"maapi_init_cursor", "maapi_num_instances"}),
            Calls{std::string("maapi_init_cursor ") + kVpwsAttachments})
      << "nothing is read for a later rule";
}

TEST_F(VpnAccessTest, TheUplinkWarningEndsTheCall) {
  add_changed(Vpls{.interface = "eth-3", .tls = 1});
  add_changed(Vpws{.interface = "eth-1", .vlan = 10});
  add_static_member(60, 1001);
  add_uplink("l3-60", 1, "60");
  expect(-3, kUplinkWarning);
  EXPECT_EQ(calls_of({"maapi_find_next"}), Calls{}) << "the identifier of VPN red is not looked up";
}

TEST_F(VpnAccessTest, AnInterfaceSeenByVpwsIsKnownToVpls) {
  add(Vpws{.interface = "eth-1", .vlan = 10});
  add(Vpls{.vpn = "green", .id = 2, .interface = "eth-1", .vlan = 11});
  expect(0, "");
  add(Vpls{.vpn = "red", .interface = "eth-1", .vlan = 10});
  expect(
      -1,
      "vpls-group north vpn red and vpws-group west vpn blue must not be configured with the same dot1q on interface eth-1");
}

TEST_F(VpnAccessTest, AServicePortSeenByVpwsIsKnownToVpls) {
  add(Vpws{.interface = "service-port-1", .vlan = 10});
  add(Vpls{.vpn = "green", .id = 2, .interface = "service-port-1", .vlan = 11});
  expect(0, "");
  add(Vpls{.vpn = "red", .interface = "service-port-1"});
  expect(-1, "service-port-1 cannot be used on port-based and VLAN based VPNs at the same time");
}

TEST_F(VpnAccessTest, NothingOfACallIsLeftForTheNext) {
  add_changed(Vpws{.interface = "service-port-1"});
  expect(0, "");
  expect(0, "");
}

TEST_F(VpnAccessTest, WithoutAKnownMaximumEveryVplsInterfaceIsRefused) {
  platform_limits.vpls_max_ac_itf = kLimitNotRead;
  add(Vpws{});
  expect(0, "");
  add(Vpls{.interface = "eth-2"});
  expect(-1, "Maximum number of access-interfaces has been exceeded. Attempt to configure 1 of -1 allowed");
}

// A commit in which every rule has something to look at and only transparent-LAN-service something to say: VPWS blue
// with VLAN 10 on eth-1, VPLS green with a range on eth-2, VPLS yellow on a service port and VPLS red, port-based with
// the service, on eth-3. eth-4 is the only port in the VLAN manager and the multicast router.
class VpnAccessCommitTest : public VpnAccessTest {
 protected:
  VpnAccessCommitTest() {
    add_changed(Vpws{.vlan = 10});
    add_changed(Vpls{.vpn = "green", .id = 2, .interface = "eth-2", .ranges = {{20, 30}}});
    add_changed(Vpls{.vpn = "red", .id = 1, .interface = "eth-3", .tls = 1});
    add_changed(Vpls{.vpn = "yellow", .id = 3, .interface = "service-port-1", .vlan = 40});
    platform.leaf(kYellow + "/int-vpls-bd-mtu", u32(2000));
    platform.change(kRed + "/int-vpls-ac{eth-3}", MOP_CREATED);
    add_static_member(25, 1004);
    add_router_interface(7, 1004);
    add_uplink("l3-60", 1, "60");
  }

  const std::string kGreen = "/internal/int-vpls-group{north}/int-vpls-vpn{green 2}/int-vpls-bd";
  const std::string kRed = "/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd";
  const std::string kYellow = "/internal/int-vpls-group{north}/int-vpls-vpn{yellow 3}/int-vpls-bd";
};

TEST_F(VpnAccessCommitTest, MakesTheseCalls) {
  expect(-3, kTlsWarning);
  const std::string members = "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  const std::string routers = "/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry";
  const std::string config = "/mpls/l2vpn-config/l2vpn";
  const std::string vpns = "/internal/int-vpls-group{north}/int-vpls-vpn";
  const std::string blue_encap = "/internal/int-vpws-intf-encap{west blue 7 eth-1}/int-vpws-encap";
  const std::string green_encap = kGreen + "/int-vpls-ac{eth-2}/int-vpls-encap/int-vpls-encap";
  const std::string red_encap = kRed + "/int-vpls-ac{eth-3}/int-vpls-encap/int-vpls-encap";
  const std::string yellow_encap = kYellow + "/int-vpls-ac{service-port-1}/int-vpls-encap/int-vpls-encap";
  const Calls calls{
      "maapi_init_cursor " + std::string(kVpwsAttachments),
      "maapi_get_next " + std::string(kVpwsAttachments),
      "valid_intfname eth-1",
      "maapi_keypath_diff_iterate " + config + "/vpws-group{west}/vpn{blue}/access-interface{eth-1}",
      "maapi_num_instances " + blue_encap + "-dot1q-range",
      "maapi_exists " + blue_encap + "-untagged",
      "limid_from_intfname eth-1",
      "limid_to_ifindex 101",
      "maapi_exists " + std::string(kMembers) + "{1 10 1001}",
      "maapi_get_next " + std::string(kVpwsAttachments),
      "maapi_destroy_cursor " + std::string(kVpwsAttachments),
      "maapi_init_cursor " + std::string(kVplsAttachments),
      "maapi_get_next " + std::string(kVplsAttachments),
      "valid_intfname eth-2",
      "maapi_num_instances " + kGreen + "/int-vpls-ac",
      "maapi_get_object " + kGreen,
      "maapi_keypath_diff_iterate " + config + "/vpls-group{north}/vpn{green}/bridge-domain",
      "maapi_exists " + green_encap + "-untagged",
      "maapi_num_instances " + green_encap + "-dot1q-range",
      "maapi_num_instances " + std::string(kRouterInterfaces),
      "limid_from_intfname eth-2",
      "limid_to_ifindex 102",
      "maapi_init_cursor " + std::string(kRouterInterfaces),
      "maapi_get_objects " + routers + " 64x2",
      "maapi_destroy_cursor " + routers,
      "limid_from_intfname eth-2",
      "limid_to_ifindex 102",
      "maapi_exists " + std::string(kMembers) + "{1 0 1002}",
      "maapi_num_instances " + green_encap + "-dot1q-range",
      "maapi_init_cursor " + green_encap + "-dot1q-range",
      "maapi_get_objects " + green_encap + "-dot1q-range 1x2",
      "limid_from_intfname eth-2",
      "limid_to_ifindex 102",
      "maapi_init_cursor " + std::string(kMembers),
      "maapi_find_next " + members + " same or after {1 20 0}",
      "maapi_exists " + std::string(kMembers) + "{1 25 1002}",
      "maapi_destroy_cursor " + members,
      "maapi_destroy_cursor " + green_encap + "-dot1q-range",
      "maapi_get_next " + std::string(kVplsAttachments),
      "valid_intfname eth-3",
      "maapi_num_instances " + kRed + "/int-vpls-ac",
      "maapi_get_object " + kRed,
      "maapi_keypath_diff_iterate " + config + "/vpls-group{north}/vpn{red}/bridge-domain",
      "maapi_exists " + red_encap + "-untagged",
      "maapi_num_instances " + red_encap + "-dot1q-range",
      "maapi_num_instances " + std::string(kRouterInterfaces),
      "limid_from_intfname eth-3",
      "limid_to_ifindex 103",
      "maapi_init_cursor " + std::string(kRouterInterfaces),
      "maapi_get_objects " + routers + " 64x2",
      "maapi_destroy_cursor " + routers,
      "maapi_get_next " + std::string(kVplsAttachments),
      "valid_intfname service-port-1",
      "maapi_num_instances " + kYellow + "/int-vpls-ac",
      "maapi_get_object " + kYellow,
      "maapi_keypath_diff_iterate " + config + "/vpls-group{north}/vpn{yellow}/bridge-domain",
      "maapi_exists " + yellow_encap + "-untagged",
      "maapi_num_instances " + yellow_encap + "-dot1q-range",
      "maapi_num_instances " + std::string(kRouterInterfaces),
      "limid_from_intfname service-port-1",
      "limid_to_ifindex 111",
      "maapi_init_cursor " + std::string(kRouterInterfaces),
      "maapi_get_objects " + routers + " 64x2",
      "maapi_destroy_cursor " + routers,
      "limid_from_intfname service-port-1",
      "limid_to_ifindex 111",
      "maapi_exists " + std::string(kMembers) + "{1 40 1011}",
      "maapi_get_next " + std::string(kVplsAttachments),
      "maapi_destroy_cursor " + std::string(kVplsAttachments),
      "fm_init",
      "fm_local_slot",
      "fm_scalar_card_selective_encapsulation_max_vlan_entries",
      "fm_scalar_card_selective_encapsulation_max_vlan_ranges",
      "maapi_init_cursor " + std::string(kMembers),
      "maapi_get_next " + members,
      "limid_from_ifindex 1004",
      "limid_to_intfname 104",
      "maapi_get_next " + members,
      "maapi_destroy_cursor " + members,
      "maapi_init_cursor " + vpns,
      "maapi_find_next " + vpns + " after {yellow 0}",
      "maapi_destroy_cursor " + vpns,
      "maapi_get_elem " + kYellow + "/int-vpls-bd-mtu",
      "maapi_num_instances " + std::string(kUplinks),
      "maapi_init_cursor " + std::string(kUplinks),
      "maapi_get_next " + std::string(kUplinks),
      "maapi_get_next " + std::string(kUplinks),
      "maapi_destroy_cursor " + std::string(kUplinks),
      "limid_from_intfname eth-1",
      "limid_to_ifindex 101",
      "maapi_exists " + std::string(kMembers) + "{1 60 1001}",
      "limid_from_intfname eth-2",
      "limid_to_ifindex 102",
      "maapi_exists " + std::string(kMembers) + "{1 60 1002}",
      "limid_from_intfname eth-3",
      "limid_to_ifindex 103",
      "maapi_exists " + std::string(kMembers) + "{1 60 1003}",
      "limid_from_intfname service-port-1",
      "limid_to_ifindex 111",
      "maapi_exists " + std::string(kMembers) + "{1 60 1011}",
      "maapi_keypath_diff_iterate " + config + "/vpls-group{north}/vpn{red}/bridge-domain/transparent-lan-service",
      "maapi_init_cursor " + vpns,
      "maapi_find_next " + vpns + " after {red 0}",
      "maapi_destroy_cursor " + vpns,
      "maapi_keypath_diff_iterate " + kRed + "/int-vpls-bd-vlan",
      "maapi_num_instances " + kRed + "/int-vpls-ac",
      "maapi_keypath_diff_iterate " + kRed + "/int-vpls-ac{eth-3}",
      "confd_trans_seterr " + std::string(kTlsWarning),
  };
  EXPECT_EQ(platform.calls(), calls);
}

/// What becomes of the commit when the n-th call of a function fails.
struct Outcome {
  std::int32_t result = 0;
  std::string message;

  bool operator==(const Outcome &) const = default;
};

void PrintTo(const Outcome &outcome, std::ostream *out) { *out << outcome.result << ' ' << outcome.message; }

// The calls whose failure changes the outcome; every other one is as if nothing were there, and nothing was to find.
const std::map<std::pair<std::string, std::size_t>, Outcome> changed_outcomes{
    // The VPLS walk ends before it comes to VPN red.
    {{"maapi_init_cursor", 2}, {0, ""}},
    {{"maapi_get_next", 3}, {0, ""}},
    {{"maapi_get_next", 4}, {0, ""}},
    {{"valid_intfname", 1}, {-1, "vpws-group west vpn blue interface is not valid. Verify available interfaces"}},
    {{"valid_intfname", 2}, {-1, "vpls-group north vpn green interface is not valid. Verify available interfaces"}},
    {{"valid_intfname", 3}, {-1, "vpls-group north vpn red interface is not valid. Verify available interfaces"}},
    {{"valid_intfname", 4}, {-1, "vpls-group north vpn yellow interface is not valid. Verify available interfaces"}},
    // VPN red counts as one without the service, then as unchanged.
    {{"maapi_get_object", 2}, {0, ""}},
    {{"maapi_keypath_diff_iterate", 3}, {0, ""}},
    // A limit that cannot be read is 0.
    {{"fm_local_slot", 1},
     {-1,
      "Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure 1 of 0 allowed"}},
    {{"fm_scalar_card_selective_encapsulation_max_vlan_entries", 1},
     {-1,
      "Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure 1 of 0 allowed"}},
    {{"fm_scalar_card_selective_encapsulation_max_vlan_ranges", 1},
     {-1,
      "Maximum number of VLAN ranges on VPN Selective Encapsulation has been exceeded. Attempt to configure 1 of 0 allowed"}},
    // There is no MTU under identifier 0.
    {{"maapi_init_cursor", 9},
     {-1,
      "vpls-group north vpn yellow access-interface service-port-1 : VPLS VPN assigned to a service-port must have its bridge MTU lesser or equal than 2000."}},
    {{"maapi_find_next", 2},
     {-1,
      "vpls-group north vpn yellow access-interface service-port-1 : VPLS VPN assigned to a service-port must have its bridge MTU lesser or equal than 2000."}},
    // There is no access list under identifier 0, and no change of eth-3.
    {{"maapi_init_cursor", 11}, {0, ""}},
    {{"maapi_find_next", 3}, {0, ""}},
    {{"maapi_keypath_diff_iterate", 7}, {0, ""}},
};

constexpr std::size_t kCountOfGreensRanges = 5;

TEST_F(VpnAccessCommitTest, OutlivesTheFailureOfAnyCall) {
  verdict();
  const Calls calls = platform.calls();
  std::map<std::string, std::size_t> uses;
  for (const std::string &call : calls) {
    const std::string function = call.substr(0, call.find(' '));
    const std::size_t nth = ++uses[function];
    SCOPED_TRACE(function + " " + std::to_string(nth) + ", " + call);
    fail_only(function, nth);
    if (function == "maapi_num_instances" && nth == kCountOfGreensRanges) {
      EXPECT_THROW(verdict(), std::bad_array_new_length);
    } else {
      const auto changed = changed_outcomes.find({function, nth});
      const std::int32_t result = verdict();
      const bool has_message = platform.count("confd_trans_seterr") != 0;
      EXPECT_EQ((Outcome{result, has_message ? platform.error() : ""}),
                changed == changed_outcomes.end() ? (Outcome{-3, kTlsWarning}) : changed->second);
    }
    EXPECT_EQ(platform.leaks(), std::vector<std::string>{});
  }
}

}  // namespace
