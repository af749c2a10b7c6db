#include "tests/unit/access_family.h"

namespace {

using scripted::i32;
using scripted::u32;

class VplsAccessEncapsulation : public AccessEncapsulationOf<VplsFamily> {};

TEST_F(VplsAccessEncapsulation, a_range_must_not_begin_at_the_bridge_domain_vlan) {
  set_ranges({{u32(50), u32(60)}, {u32(100), u32(200)}});
  EXPECT_EQ(verdict(100, false, true), -1);
  EXPECT_EQ(
      platform.errors(),
      std::vector<std::string>{
          "vpls-group north vpn red interface eth-1 must not be configured with the same dot1q 100 between bridge-domain and encapsulation minimum value in the dot1q-range [100-200]"});
  EXPECT_EQ(recorded(), (std::map<std::string, Claims>{})) << "no range of a refused attachment is recorded";
}

TEST_F(VplsAccessEncapsulation, without_a_bridge_domain_vlan_a_range_must_not_begin_at_zero) {
  set_ranges({{u32(0), u32(5)}});
  EXPECT_EQ(verdict(0, false, true), -1);
  EXPECT_EQ(
      platform.error(),
      "vpls-group north vpn red interface eth-1 must not be configured with the same dot1q 0 between bridge-domain and encapsulation minimum value in the dot1q-range [0-5]");
}

TEST_F(VplsAccessEncapsulation, ranges_are_not_checked_for_igmp_snooping) {
  set_ranges({{u32(10), u32(20)}});
  add_router_interface(7, 1001);
  record_change(VplsFamily::kGroup, VplsFamily::kVpn, interface);
  EXPECT_EQ(verdict(0, false, true), 0);
}

TEST_F(VplsAccessEncapsulation, the_bridge_domain_vlan_comes_before_the_other_checks_of_a_range) {
  set_ranges({{u32(10), u32(20)}});
  record_vlan("vpws-group west", "vpn blue", "eth-1", 10);
  record_change(VplsFamily::kGroup, VplsFamily::kVpn, interface);
  add_static_member(10, 1001);
  verdict(10, false, true);
  EXPECT_EQ(platform.error(),
            message_of("access-range-at-bridge-domain", {"vpls-group north vpn red", "eth-1", "10", "10", "20"}));
  verdict(5, false, true);
  EXPECT_EQ(platform.error(), message_of("access-static-member", {"vpls-group north vpn red", "eth-1", "10"}));
}

TEST_F(VplsAccessEncapsulation, untagged_is_compared_after_the_ranges) {
  set_ranges({{u32(10), u32(20)}});
  record("vpws-group west", "vpn blue", "eth-1", VLAN_CFG_ENCAP, {0, 0});
  EXPECT_EQ(verdict(10, true, true), -1);
  EXPECT_EQ(platform.error(),
            message_of("access-range-at-bridge-domain", {"vpls-group north vpn red", "eth-1", "10", "10", "20"}));
  EXPECT_EQ(verdict(5, true, true), -1);
  EXPECT_EQ(platform.error(),
            message_of("access-untagged-twice", {"eth-1", "vpls-group north vpn red", "vpws-group west vpn blue"}));
  EXPECT_EQ(verdict(5, false, true), 0) << "not untagged itself";
}

TEST_F(VplsAccessEncapsulation, an_id_from_two_to_the_31_on_is_written_without_sign) {
  std::string group = VplsFamily::kGroup;
  std::string vpn = VplsFamily::kVpn;
  config_validate_vpls_access_encap(sock(), tctx(), group, vpn, 0x80000000, interface, 5, false, true, snapshot);
  ASSERT_FALSE(platform.calls().empty());
  EXPECT_EQ(
      platform.calls().front(),
      "maapi_num_instances /internal/int-vpls-group{north}/int-vpls-vpn{red 2147483648}/int-vpls-bd/int-vpls-ac{eth-1}/int-vpls-encap/int-vpls-encap-dot1q-range");
}

TEST_F(VplsAccessEncapsulation, a_range_is_looked_at_after_the_ones_before_it_passed) {
  set_ranges({{u32(10), u32(20)}, {u32(30), i32(40)}});
  EXPECT_EQ(verdict(10, false, true), -1) << "the first range is refused";
  EXPECT_BROKEN_MODEL(verdict(5, false, true), "config_validate_vpls", "(&v[1])->type == C_UINT32");
}

}  // namespace
