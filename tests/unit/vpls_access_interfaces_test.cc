#include "tests/unit/access_family.h"

namespace {

using scripted::enum_value;
using scripted::i32;
using scripted::text;
using scripted::u32;

class VplsAccessInterfaces : public AccessInterfacesOf<VplsFamily> {};

TEST_F(VplsAccessInterfaces, the_service_is_recorded_for_its_vpn) {
  add(Vpls{.vpn = "red", .interface = "eth-1"});
  add(Vpls{.vpn = "green", .id = 2, .interface = "eth-2", .vlan = 100, .tls = 1});
  expect_accepted();
  EXPECT_EQ(snapshot.tls_map, (decltype(snapshot.tls_map){{{"vpls-group north", "vpn green"}, true}}));
}

TEST_F(VplsAccessInterfaces, a_change_anywhere_in_the_bridge_domain_is_the_attachments_change) {
  add(Vpls{.interface = "eth-1", .vlan = 100});
  add(Vpls{.interface = "eth-2", .vlan = 100});
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain/dot1q", MOP_VALUE_SET, u32(100));
  expect_accepted();
  EXPECT_EQ(snapshot.mop_map, (decltype(snapshot.mop_map){{{"vpls-group north", "vpn red", "eth-1"}, MOP_VALUE_SET},
                                                          {{"vpls-group north", "vpn red", "eth-2"}, MOP_VALUE_SET}}));
}

TEST_F(VplsAccessInterfaces, every_setting_but_two_is_transparent_lan_service) {
  for (const auto &[setting, is_on] : std::map<int, bool>{{0, true}, {1, true}, {2, false}, {3, true}}) {
    SCOPED_TRACE(setting);
    snapshot = {};
    platform.list(kVplsAttachments, 4);
    add(Vpls{.tls = setting});
    expect_accepted();
    EXPECT_EQ(get_vpls_tls("vpls-group north", "vpn red", snapshot), is_on);
  }
}

TEST_F(VplsAccessInterfaces, the_vpn_must_not_have_more_than_the_maximum) {
  for (const char *interface : {"eth-1", "eth-2", "eth-3"}) add(Vpls{.interface = interface, .vlan = 100});
  maximum = 3;
  expect_accepted();
  snapshot = {};
  maximum = 2;
  expect_rejected(message_of("access-interface-limit", {"3", "2"}));
}

TEST_F(VplsAccessInterfaces, a_maximum_that_was_never_read_refuses_every_interface) {
  add(Vpls{});
  maximum = -1;
  expect_rejected(message_of("access-interface-limit", {"1", "-1"}));
}

TEST_F(VplsAccessInterfaces, all_interfaces_of_a_vpn_have_an_encapsulation_or_none_has) {
  add(Vpls{.interface = "eth-1", .ranges = {{10, 20}}});
  add(Vpls{.interface = "eth-2", .untagged = true});
  expect_accepted();
  snapshot = {};
  add(Vpls{.interface = "eth-3", .vlan = 100});
  expect_rejected(message_of("access-encapsulation-mixed", {"vpls-group north vpn red"}));
}

TEST_F(VplsAccessInterfaces, a_changed_attachment_is_no_multicast_router_interface) {
  add_router_interface(7, 1001);
  add(Vpls{});
  expect_accepted();
  snapshot = {};
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain", MOP_MODIFIED);
  expect_rejected(message_of("access-igmp-snooping", {"vpls-group north vpn red", "eth-1", "7"}));
}

TEST_F(VplsAccessInterfaces, an_encapsulation_is_checked_against_the_bridge_domain) {
  add(Vpls{.vlan = 100, .ranges = {{50, 150}}});
  expect_accepted();
  snapshot = {};
  add(Vpls{.interface = "eth-2", .vlan = 100, .ranges = {{100, 200}}});
  expect_rejected(
      message_of("access-range-at-bridge-domain", {"vpls-group north vpn red", "eth-2", "100", "100", "200"}));
}

TEST_F(VplsAccessInterfaces, a_service_port_of_the_vpws_walk_is_known) {
  service_ports = {{"service-port-1", true}};
  add(Vpls{.interface = "service-port-1", .vlan = 100});
  expect_rejected(message_of("service-port-mixed-use", {"service-port-1"}));
}

// Every rule would refuse; each row takes away the reason of the row before.
TEST_F(VplsAccessInterfaces, the_first_failing_rule_decides_the_message) {
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
  EXPECT_EQ(message(), message_of("access-interface-unknown", {"vpls-group north vpn red"}));
  platform.interface("service-port-9", 109, 1009);
  EXPECT_EQ(message(), message_of("access-interface-limit", {"1", "0"}));
  maximum = 1;
  EXPECT_EQ(message(), message_of("access-encapsulation-mixed", {"vpls-group north vpn red"}));
  snapshot.intf_map.erase("eth-2");
  EXPECT_EQ(message(), message_of("access-igmp-snooping", {"vpls-group north vpn red", "service-port-9", "7"}));
  platform.list(kRouterInterfaces, 2);
  EXPECT_EQ(message(), message_of("access-static-member", {"vpls-group north vpn red", "service-port-9", "100"}));
  platform.list(kMembers, 3);
  EXPECT_EQ(message(), message_of("access-same-dot1q",
                                  {"vpls-group north vpn red", "vpws-group west vpn blue", "service-port-9"}));
  snapshot = {};
  EXPECT_EQ(message(), message_of("access-range-at-bridge-domain",
                                  {"vpls-group north vpn red", "service-port-9", "100", "100", "200"}));
  platform.list(bridge_domain(Vpls{}) + "/int-vpls-ac{service-port-9}/int-vpls-encap/int-vpls-encap-dot1q-range", 2,
                {{u32(101), u32(200)}});
  EXPECT_EQ(message(), message_of("service-port-mixed-use", {"service-port-9"}));
}

TEST_F(VplsAccessInterfaces, reads_in_this_order) {
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

TEST_F(VplsAccessInterfaces, a_bridge_domain_that_cannot_be_read_has_no_vlan_and_no_service) {
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
TEST_F(VplsAccessInterfaces, the_bridge_domain_of_an_id_from_two_to_the_31_on_is_not_found) {
  add(Vpls{.id = 0x80000000, .vlan = 100, .tls = 1, .ranges = {{10, 20}}});
  maximum = 0;
  expect_accepted();
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{"eth-1 vpls-group north vpn red", {{{10, 20}}, true}}}));
  EXPECT_FALSE(get_vpls_tls("vpls-group north", "vpn red", snapshot));
  const std::string vpn = "/internal/int-vpls-group{north}/int-vpls-vpn{red -2147483648}/int-vpls-bd";
  EXPECT_EQ(calls_of({"maapi_get_object"}), Calls{"maapi_get_object " + vpn});
  EXPECT_EQ(calls_of({"maapi_num_instances"}).front(), "maapi_num_instances " + vpn + "/int-vpls-ac");
}

TEST_F(VplsAccessInterfaces, bridge_domain_values_of_another_type_count_as_unset) {
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

constexpr const char *kRed = "eth-1 vpls-group north vpn red";

TEST_F(VplsAccessInterfaces, a_failed_read_is_as_if_nothing_were_there) {
  add_changed(Vpls{.vlan = 100, .untagged = true, .ranges = {{20, 30}}});
  add_router_interface(7, 1002);
  const Claims all{{{0, 0}, {20, 30}, {100, 100}}, true};
  expect_failures_to_leave({
      {"maapi_init_cursor", 1, {}, false},
      {"maapi_get_next", 1, {}, false},
      {"maapi_get_next", 2, {{kRed, all}}, true},
      {"maapi_num_instances", 1, {{kRed, all}}, true},
      {"maapi_get_object", 1, {{kRed, {{{0, 0}, {20, 30}}, true}}}, true},
      {"maapi_keypath_diff_iterate", 1, {{kRed, all}}, false},
      {"maapi_exists", 1, {{kRed, {{{20, 30}, {100, 100}}, true}}}, true},
      {"maapi_get_enum_value_elem", 1, {{kRed, {{{20, 30}, {100, 100}}, true}}}, true},
      {"maapi_num_instances", 2, {{kRed, all}}, true},  // untagged is enough to look for ranges
      {"maapi_num_instances", 3, {{kRed, all}}, true},  // router interfaces
      {"limid_from_intfname", 1, {{kRed, all}}, true},
      {"limid_to_ifindex", 1, {{kRed, all}}, true},
      {"maapi_init_cursor", 2, {{kRed, all}}, true},
      {"maapi_get_objects", 1, {{kRed, all}}, true},
      {"maapi_exists", 2, {{kRed, all}}, true},
      // Nothing is recorded but the flag that the agreement of encapsulations has set.
      {"maapi_init_cursor", 3, {{kRed, {{}, true}}}, true},
      {"maapi_get_objects", 2, {{kRed, {{}, true}}}, true},
      {"maapi_init_cursor", 4, {{kRed, all}}, true},
      {"maapi_find_next", 1, {{kRed, all}}, true},
  });
}

}  // namespace
