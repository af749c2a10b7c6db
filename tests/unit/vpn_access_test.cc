#include <new>

#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/platform_limits.h"
#include "source_dir.h"
#include "tests/support/golden_lines.h"
#include "tests/support/rule_message.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::text;
using scripted::u32;

const std::string kUplinkWarning = message_of("access-on-uplink", {});
const std::string kTlsWarning = message_of("tls-port-based-vpls", {"eth-3", "north", "red"});

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

TEST_F(VpnAccessTest, accepts_an_element_without_vpns) {
  expect(0, "");
  const std::string vpws = kVpwsAttachments;
  const std::string vpls = kVplsAttachments;
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_init_cursor " + vpws, "maapi_get_next " + vpws, "maapi_destroy_cursor " + vpws,
                   "maapi_init_cursor " + vpls, "maapi_get_next " + vpls, "maapi_destroy_cursor " + vpls,
                   std::string("maapi_num_instances ") + kUplinks}));
}

// Every rule has a reason to stop the commit; each step takes away the reason of the one before.
TEST_F(VpnAccessTest, the_rules_run_in_their_order) {
  add_changed(Vpws{.interface = "eth-9"});
  add_changed(Vpls{.vpn = "green", .id = 2, .interface = "eth-8", .ranges = {{20, 30}}});
  add_changed(Vpls{.vpn = "red", .id = 1, .interface = "eth-3", .tls = 1});
  add_changed(Vpls{.vpn = "yellow", .id = 3, .interface = "service-port-1", .vlan = 40});
  platform.limits.encapsulation_entries = 0;
  add_static_member(60, 1003);
  add_uplink("l3-60", 1, "60");
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain/transparent-lan-service",
                  MOP_CREATED);

  expect(-1, message_of("access-interface-unknown", {"vpws-group west vpn blue"}));
  platform.valid_name("eth-9");
  expect(-1, message_of("access-interface-unknown", {"vpls-group north vpn green"}));
  platform.valid_name("eth-8");
  expect(-1, message_of("encapsulation-vlan-limit", {"1", "0"}));
  platform.limits.encapsulation_entries = 1;
  expect(-1, message_of("access-port-based-static-member", {"vpls-group north vpn red", "eth-3", "60"}));
  // A member that carries VPNs by VLAN only is no obstacle to the VLAN manager, but its VLAN is an uplink's.
  platform.list(kMembers, 3);
  add_static_member(60, 1011);
  expect(-1, message_of("service-port-bridge-mtu", {"vpls-group north vpn yellow", "service-port-1", "2000"}));
  platform.leaf("/internal/int-vpls-group{north}/int-vpls-vpn{yellow 3}/int-vpls-bd/int-vpls-bd-mtu", u32(2000));
  expect(-3, kUplinkWarning);
  platform.list(kUplinks, 3);
  expect(-3, kTlsWarning);
  platform.list("/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd/int-vpls-ac", 1);
  platform.forget_calls();
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.count("confd_trans_seterr"), 0U);
}

TEST_F(VpnAccessTest, a_rejection_ends_the_call) {
  add(Vpws{.interface = "eth-9"});
  add(Vpls{});
  add_uplink("l3-60", 1, "60");
  expect(-1, message_of("access-interface-unknown", {"vpws-group west vpn blue"}));
  EXPECT_EQ(calls_of({"maapi_init_cursor", "maapi_num_instances"}),
            Calls{std::string("maapi_init_cursor ") + kVpwsAttachments})
      << "nothing is read for a later rule";
}

TEST_F(VpnAccessTest, the_uplink_warning_ends_the_call) {
  add_changed(Vpls{.interface = "eth-3", .tls = 1});
  add_changed(Vpws{.interface = "eth-1", .vlan = 10});
  add_static_member(60, 1001);
  add_uplink("l3-60", 1, "60");
  expect(-3, kUplinkWarning);
  EXPECT_EQ(calls_of({"maapi_find_next"}), Calls{}) << "the identifier of VPN red is not looked up";
}

TEST_F(VpnAccessTest, an_interface_seen_by_vpws_is_known_to_vpls) {
  add(Vpws{.interface = "eth-1", .vlan = 10});
  add(Vpls{.vpn = "green", .id = 2, .interface = "eth-1", .vlan = 11});
  expect(0, "");
  add(Vpls{.vpn = "red", .interface = "eth-1", .vlan = 10});
  expect(-1, message_of("access-same-dot1q", {"vpls-group north vpn red", "vpws-group west vpn blue", "eth-1"}));
}

TEST_F(VpnAccessTest, a_service_port_seen_by_vpws_is_known_to_vpls) {
  add(Vpws{.interface = "service-port-1", .vlan = 10});
  add(Vpls{.vpn = "green", .id = 2, .interface = "service-port-1", .vlan = 11});
  expect(0, "");
  add(Vpls{.vpn = "red", .interface = "service-port-1"});
  expect(-1, message_of("service-port-mixed-use", {"service-port-1"}));
}

TEST_F(VpnAccessTest, nothing_of_a_call_is_left_for_the_next) {
  add_changed(Vpws{.interface = "service-port-1"});
  expect(0, "");
  expect(0, "");
}

TEST_F(VpnAccessTest, without_a_known_maximum_every_vpls_interface_is_refused) {
  platform_limits.vpls_max_ac_itf = kLimitNotRead;
  add(Vpws{});
  expect(0, "");
  add(Vpls{.interface = "eth-2"});
  expect(-1, message_of("access-interface-limit", {"1", "-1"}));
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

TEST_F(VpnAccessCommitTest, makes_these_calls) {
  expect(-3, kTlsWarning);
  EXPECT_TRUE(are_lines_of(SOURCE_DIR "/tests/unit/vpn_access_calls.txt", platform.calls()));
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
    {{"valid_intfname", 1}, {-1, message_of("access-interface-unknown", {"vpws-group west vpn blue"})}},
    {{"valid_intfname", 2}, {-1, message_of("access-interface-unknown", {"vpls-group north vpn green"})}},
    {{"valid_intfname", 3}, {-1, message_of("access-interface-unknown", {"vpls-group north vpn red"})}},
    {{"valid_intfname", 4}, {-1, message_of("access-interface-unknown", {"vpls-group north vpn yellow"})}},
    // VPN red counts as one without the service, then as unchanged.
    {{"maapi_get_object", 2}, {0, ""}},
    {{"maapi_keypath_diff_iterate", 3}, {0, ""}},
    // A limit that cannot be read is 0.
    {{"fm_local_slot", 1}, {-1, message_of("encapsulation-vlan-limit", {"1", "0"})}},
    {{"fm_scalar_card_selective_encapsulation_max_vlan_entries", 1},
     {-1, message_of("encapsulation-vlan-limit", {"1", "0"})}},
    {{"fm_scalar_card_selective_encapsulation_max_vlan_ranges", 1},
     {-1, message_of("encapsulation-range-limit", {"1", "0"})}},
    // There is no MTU under identifier 0.
    {{"maapi_init_cursor", 9},
     {-1, message_of("service-port-bridge-mtu", {"vpls-group north vpn yellow", "service-port-1", "2000"})}},
    {{"maapi_find_next", 2},
     {-1, message_of("service-port-bridge-mtu", {"vpls-group north vpn yellow", "service-port-1", "2000"})}},
    // There is no access list under identifier 0, and no change of eth-3.
    {{"maapi_init_cursor", 11}, {0, ""}},
    {{"maapi_find_next", 3}, {0, ""}},
    {{"maapi_keypath_diff_iterate", 7}, {0, ""}},
};

constexpr std::size_t kCountOfGreensRanges = 5;

TEST_F(VpnAccessCommitTest, outlives_the_failure_of_any_call) {
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
