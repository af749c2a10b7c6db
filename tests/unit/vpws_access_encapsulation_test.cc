#include "tests/unit/access_family.h"

namespace {

using scripted::u32;

class VpwsAccessEncapsulation : public AccessEncapsulationOf<VpwsFamily> {};

TEST_F(VpwsAccessEncapsulation, a_range_may_begin_where_another_claim_does) {
  expect_records({
      {"a range from zero", 0, false, {{0, 5}}, {{{0, 5}}, true}},
      {"a range that begins at the basic VLAN is absorbed by it", 100, false, {{100, 200}}, {{{100, 100}}, true}},
  });
}

TEST_F(VpwsAccessEncapsulation, the_vlan_manager_comes_first_and_untagged_last) {
  set_ranges({{u32(10), u32(20)}});
  record("vpls-group north", "vpn red", "eth-1", VLAN_CFG_ENCAP, {0, 0});
  record("vpls-group north", "vpn red", "eth-1", VLAN_CFG_ENCAP, {10, 10});
  record_change(VpwsFamily::kGroup, VpwsFamily::kVpn, interface);
  add_static_member(10, 1001);
  EXPECT_EQ(verdict(0, true, true), -1);
  EXPECT_EQ(platform.error(), message_of("access-static-member", {"vpws-group west vpn blue", "eth-1", "10"}));
  platform.list(kMembers, 3);
  EXPECT_EQ(verdict(0, true, true), -1);
  EXPECT_EQ(platform.error(),
            message_of("access-same-dot1q", {"vpws-group west vpn blue", "vpls-group north vpn red", "eth-1"}));
  set_ranges({{u32(11), u32(20)}});
  EXPECT_EQ(verdict(0, true, true), -1);
  EXPECT_EQ(platform.error(),
            message_of("access-untagged-twice", {"eth-1", "vpws-group west vpn blue", "vpls-group north vpn red"}));
  EXPECT_EQ(verdict(0, false, true), 0) << "not untagged itself";
}

TEST_F(VpwsAccessEncapsulation, one_vpn_may_have_the_interface_untagged) {
  std::string group = VpwsFamily::kGroup;
  std::string vpn = VpwsFamily::kVpn;
  EXPECT_EQ(config_validate_vpws_access_untagged(tctx(), group, vpn, interface, true, snapshot), 0);
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{record_name(), {{{0, 0}}, true}}}));

  std::string other = "vpn green";
  EXPECT_EQ(config_validate_vpws_access_untagged(tctx(), group, other, interface, false, snapshot), 0);
  EXPECT_EQ(config_validate_vpws_access_untagged(tctx(), group, other, interface, true, snapshot), -1);
  EXPECT_EQ(platform.errors(),
            std::vector<std::string>{message_of("access-untagged-twice",
                                                {"eth-1", "vpws-group west vpn green", "vpws-group west vpn blue"})});
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{record_name(), {{{0, 0}}, true}}}));
}

}  // namespace
