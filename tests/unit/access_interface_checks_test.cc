#include "config_validate_comn/rules/access_interface_checks.h"

#include "tests/unit/access_test.h"

namespace {

class AccessInterfaceChecksTest : public AccessTest {
 protected:
  std::int32_t name(const std::string &interface) {
    return check_interface_name(tctx(), "vpls-group north", "vpn red", interface);
  }
  std::int32_t untagged(const std::string &interface) {
    return check_untagged_once(tctx(), "vpls-group north", "vpn red", interface, snapshot);
  }
  std::int32_t use(std::string interface, en_vpn_match_type_t match) {
    return check_service_port_usage(tctx(), interface, service_ports, match);
  }
};

TEST_F(AccessInterfaceChecksTest, the_element_must_have_the_interface) {
  EXPECT_EQ(name("eth-1"), 0);
  EXPECT_EQ(platform.error(), "");
  EXPECT_EQ(name("eth-9"), -1);
  EXPECT_EQ(platform.error(), "vpls-group north vpn red interface is not valid. Verify available interfaces");
}

TEST_F(AccessInterfaceChecksTest, no_other_vpn_may_have_the_interface_untagged) {
  record("vpws-group west", "vpn blue", "eth-1", VLAN_CFG_ENCAP, {0, 0});
  EXPECT_EQ(untagged("eth-2"), 0);
  EXPECT_EQ(platform.error(), "");
  EXPECT_EQ(untagged("eth-1"), -1);
  EXPECT_EQ(
      platform.error(),
      "eth-1 encapsulation untagged cannot be set simultaneously in vpls-group north vpn red and vpws-group west vpn blue");
}

TEST_F(AccessInterfaceChecksTest, an_earlier_entry_of_the_same_vpn_counts_as_another) {
  record("vpls-group north", "vpn red", "eth-1", VLAN_CFG_ENCAP, {0, 0});
  EXPECT_EQ(untagged("eth-1"), -1);
  EXPECT_EQ(
      platform.error(),
      "eth-1 encapsulation untagged cannot be set simultaneously in vpls-group north vpn red and vpls-group north vpn red");
}

TEST_F(AccessInterfaceChecksTest, a_port_based_or_tagged_vpn_is_not_untagged) {
  record_port_based("vpws-group west", "vpn blue", "eth-1");
  record("vpws-group west", "vpn green", "eth-1", VLAN_CFG_ENCAP, {10, 20});
  EXPECT_EQ(untagged("eth-1"), 0);
}

TEST_F(AccessInterfaceChecksTest, a_service_port_is_shared_only_by_vlan) {
  EXPECT_EQ(use("service-port-1", VPN_MATCH_DOT1Q), 0);
  EXPECT_EQ(use("service-port-1", VPN_MATCH_DOT1Q), 0);
  EXPECT_EQ(use("service-port-2", VPN_MATCH_PORT_BASED), 0);
  EXPECT_EQ(platform.error(), "");
  EXPECT_EQ(use("service-port-1", VPN_MATCH_PORT_BASED), -1);
  EXPECT_EQ(platform.error(), "service-port-1 cannot be used on port-based and VLAN based VPNs at the same time");
  EXPECT_EQ(use("service-port-2", VPN_MATCH_DOT1Q), -1);
  EXPECT_EQ(platform.error(), "service-port-2 cannot be used on port-based and VLAN based VPNs at the same time");
}

TEST_F(AccessInterfaceChecksTest, an_ethernet_port_is_no_service_port) {
  EXPECT_EQ(use("eth-1", VPN_MATCH_PORT_BASED), 0);
  EXPECT_EQ(use("eth-1", VPN_MATCH_DOT1Q), 0);
}

}  // namespace
