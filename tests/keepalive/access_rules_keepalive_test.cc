// Where the access rules that walk long lists keep the transaction alive.

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_vpn/validation_keepalive.h"
#include "tests/support/fake_clock.h"
#include "tests/unit/access_test.h"

namespace {

class AccessRulesKeepaliveTest : public AccessTest {
 protected:
  // The next keep-alive extends the time-out, and shows in the calls by that.
  void let_the_interval_pass() {
    ASSERT_TRUE(scripted::FakeClock::works());
    scripted::FakeClock::set(1000);
    validation_keepalive(tctx());
    scripted::FakeClock::set(1037);
    platform.forget_calls();
  }
};

TEST_F(AccessRulesKeepaliveTest, AfterEachStaticMemberThatPassed) {
  record_port_based("vpws-group west", "vpn blue", "eth-1");
  record_change("vpws-group west", "vpn blue", "eth-1");
  add_static_member(10, 1002);
  let_the_interval_pass();
  EXPECT_EQ(config_validate_vpn_access_vlm_port_based(sock(), tctx(), snapshot), 0);
  const std::string next = "maapi_get_next /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  EXPECT_EQ(calls_of({"maapi_get_next", "confd_data_set_timeout"}), (Calls{next, next, "confd_data_set_timeout 120"}));
}

TEST_F(AccessRulesKeepaliveTest, AfterEachBridgeMtuThatPassed) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  platform.leaf("/internal/int-vpls-group{north}/int-vpls-vpn{red 0}/int-vpls-bd/int-vpls-bd-mtu", scripted::u32(2001));
  let_the_interval_pass();
  EXPECT_EQ(config_validate_vpn_access_sp_bd_mtu(sock(), tctx(), snapshot), -1);
  EXPECT_EQ(platform.count("confd_data_set_timeout"), 0U);

  platform.leaf("/internal/int-vpls-group{north}/int-vpls-vpn{red 0}/int-vpls-bd/int-vpls-bd-mtu", scripted::u32(2000));
  EXPECT_EQ(config_validate_vpn_access_sp_bd_mtu(sock(), tctx(), snapshot), 0);
  EXPECT_EQ(platform.count("confd_data_set_timeout"), 1U);
}

}  // namespace
