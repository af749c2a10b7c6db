#include "tests/unit/access_family.h"

namespace {

using scripted::i32;
using scripted::text;
using scripted::u32;

class VpwsAccessInterfaces : public AccessInterfacesOf<VpwsFamily> {};

TEST_F(VpwsAccessInterfaces, only_its_own_entry_is_an_attachments_change) {
  add(Vpws{.interface = "eth-1"});
  add(Vpws{.interface = "eth-2"});
  platform.change("/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}/access-interface{eth-2}/dot1q", MOP_VALUE_SET,
                  u32(5));
  expect_accepted();
  EXPECT_EQ(snapshot.mop_map, (decltype(snapshot.mop_map){{{"vpws-group west", "vpn blue", "eth-2"}, MOP_VALUE_SET}}));
}

// The word counts wherever it stands in the group's name: the change of such a VPWS group's attachment is looked for
// among the VPLS ones. Its encapsulation goes by the walk.
TEST_F(VpwsAccessInterfaces, a_group_that_holds_the_other_familys_word_is_changed_where_that_family_is) {
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

TEST_F(VpwsAccessInterfaces, an_id_from_two_to_the_31_on_is_written_without_sign) {
  add(Vpws{.id = 0x80000000, .vlan = 5, .ranges = {{10, 20}}});
  expect_accepted();
  EXPECT_EQ(recorded(),
            (std::map<std::string, Claims>{{"eth-1 vpws-group west vpn blue", {{{5, 5}, {10, 20}}, true}}}));
}

TEST_F(VpwsAccessInterfaces, interfaces_of_a_vpn_need_not_agree_on_an_encapsulation) {
  add(Vpws{.interface = "eth-1", .ranges = {{10, 20}}});
  add(Vpws{.interface = "eth-2", .vlan = 100});
  expect_accepted();
}

TEST_F(VpwsAccessInterfaces, a_router_interface_is_not_its_concern) {
  add_router_interface(7, 1001);
  add_changed(Vpws{.vlan = 100});
  expect_accepted();
}

TEST_F(VpwsAccessInterfaces, a_changed_untagged_attachment_is_looked_up_at_vlan_zero) {
  add_static_member(0, 1001);
  add_changed(Vpws{.untagged = true});
  expect_rejected(message_of("access-static-member", {"vpws-group west vpn blue", "eth-1", "0"}));
}

TEST_F(VpwsAccessInterfaces, a_range_may_begin_at_the_basic_vlan) {
  add(Vpws{.vlan = 100, .ranges = {{100, 200}}});
  expect_accepted();
}

TEST_F(VpwsAccessInterfaces, a_basic_vlan_takes_the_untagged_claim_back) {
  add(Vpws{.vpn = "blue", .vlan = 100, .untagged = true});
  add(Vpws{.vpn = "green", .id = 9, .vlan = 200, .untagged = true});
  expect_accepted();
}

// Every rule would refuse; each step takes away the reason of the one before.
TEST_F(VpwsAccessInterfaces, the_first_failing_rule_decides_the_message) {
  record("vpls-group north", "vpn red", "service-port-9", VLAN_CFG_ENCAP, {0, 0});
  record("vpls-group north", "vpn red", "service-port-9", VLAN_CFG_ENCAP, {100, 100});
  service_ports = {{"service-port-9", true}};
  add_changed(Vpws{.interface = "service-port-9", .vlan = 100, .untagged = true});
  add_static_member(100, 1009);

  const auto message = [this] {
    EXPECT_EQ(verdict(), -1);
    return platform.error();
  };
  EXPECT_EQ(message(), message_of("access-interface-unknown", {"vpws-group west vpn blue"}));
  platform.interface("service-port-9", 109, 1009);
  EXPECT_EQ(message(), message_of("access-static-member", {"vpws-group west vpn blue", "service-port-9", "100"}));
  platform.list(kMembers, 3);
  EXPECT_EQ(message(), message_of("access-same-dot1q",
                                  {"vpws-group west vpn blue", "vpls-group north vpn red", "service-port-9"}));
  snapshot = {};
  record("vpls-group north", "vpn red", "service-port-9", VLAN_CFG_ENCAP, {0, 0});
  EXPECT_EQ(message(), message_of("access-untagged-twice",
                                  {"service-port-9", "vpws-group west vpn blue", "vpls-group north vpn red"}));
  snapshot = {};
  EXPECT_EQ(message(), message_of("service-port-mixed-use", {"service-port-9"}));
}

TEST_F(VpwsAccessInterfaces, reads_in_this_order) {
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

constexpr const char *kBlue = "eth-1 vpws-group west vpn blue";

TEST_F(VpwsAccessInterfaces, a_failed_read_is_as_if_nothing_were_there) {
  add_changed(Vpws{.vlan = 100, .untagged = true, .ranges = {{20, 30}}});
  const Claims all{{{0, 0}, {20, 30}, {100, 100}}, true};
  expect_failures_to_leave({
      {"maapi_init_cursor", 1, {}, false},
      {"maapi_get_next", 1, {}, false},
      {"maapi_get_next", 2, {{kBlue, all}}, true},
      {"maapi_keypath_diff_iterate", 1, {{kBlue, all}}, false},
      {"maapi_num_instances", 1, {{kBlue, all}}, true},  // untagged is enough to look for ranges
      {"maapi_exists", 1, {{kBlue, {{{20, 30}, {100, 100}}, true}}}, true},
      {"maapi_get_enum_value_elem", 1, {{kBlue, {{{20, 30}, {100, 100}}, true}}}, true},
      {"limid_from_intfname", 1, {{kBlue, all}}, true},
      {"limid_to_ifindex", 2, {{kBlue, all}}, true},
      {"maapi_exists", 2, {{kBlue, all}}, true},
      {"maapi_init_cursor", 2, {}, true},
      {"maapi_get_objects", 1, {}, true},
      {"maapi_init_cursor", 3, {{kBlue, all}}, true},
      {"maapi_find_next", 1, {{kBlue, all}}, true},
  });
}

TEST_F(VpwsAccessInterfaces, the_vlan_among_the_keys_is_a_number_without_sign) {
  platform.list(kVpwsAttachments, 5, {{text("west"), text("blue"), u32(7), text("eth-1"), i32(0)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpws", "(&mc.keys[4])->type == C_UINT32");
}

TEST_F(VpwsAccessInterfaces, the_id_is_used_after_the_other_rules_passed) {
  platform.list(kVpwsAttachments, 5, {{text("west"), text("blue"), i32(7), text("eth-1"), u32(100)}});
  record_vlan("vpls-group north", "vpn red", "eth-1", 100);
  expect_rejected(message_of("access-same-dot1q", {"vpws-group west vpn blue", "vpls-group north vpn red", "eth-1"}));
}

}  // namespace
