// Where the access rules that walk long lists keep the transaction alive. Each runs in a process of its own, for the
// moment of the last extension belongs to the process.

#include <cstdio>
#include <cstdlib>

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_vpn/shared/validation_keepalive.h"
#include "tests/support/fake_clock.h"
#include "tests/unit/access_test.h"

namespace {

using Rule = std::int32_t (*)(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot);

class AccessRulesKeepaliveTest : public AccessTest {
 protected:
  // Runs the rule when the interval has passed, so that its first keep-alive shows as an extension among the calls.
  [[noreturn]] void run(Rule rule) {
    scripted::FakeClock::set(0);
    validation_keepalive(tctx());
    scripted::FakeClock::set(37);
    rule(sock(), tctx(), snapshot);
    for (const std::string &call : platform.calls())
      std::fprintf(stderr, "%s, ", call.substr(0, call.find(' ')).c_str());
    std::exit(0);
  }
};

TEST_F(AccessRulesKeepaliveTest, after_each_static_member_that_passed) {
  record_port_based("vpws-group west", "vpn blue", "eth-1");
  record_change("vpws-group west", "vpn blue", "eth-1");
  add_static_member(10, 1002);
  EXPECT_EXIT(run(config_validate_vpn_access_vlm_port_based), testing::ExitedWithCode(0),
              "^maapi_init_cursor, maapi_get_next, limid_from_ifindex, limid_to_intfname, maapi_get_next, "
              "confd_data_set_timeout, maapi_destroy_cursor, $");
}

TEST_F(AccessRulesKeepaliveTest, after_each_bridge_mtu_that_passed) {
  const std::string mtu = "/internal/int-vpls-group{north}/int-vpls-vpn{red 0}/int-vpls-bd/int-vpls-bd-mtu";
  record_change("vpls-group north", "vpn red", "service-port-1");
  platform.leaf(mtu, scripted::u32(2000));
  EXPECT_EXIT(run(config_validate_vpn_access_sp_bd_mtu), testing::ExitedWithCode(0),
              "^maapi_init_cursor, maapi_find_next, maapi_destroy_cursor, maapi_get_elem, confd_data_set_timeout, $");
  fail_only("maapi_get_elem", 1);
  EXPECT_EXIT(run(config_validate_vpn_access_sp_bd_mtu), testing::ExitedWithCode(0),
              "^maapi_init_cursor, maapi_find_next, maapi_destroy_cursor, maapi_get_elem, confd_data_set_timeout, $");
  fail_only("maapi_get_elem", 0);
  platform.leaf(mtu, scripted::u32(2001));
  EXPECT_EXIT(run(config_validate_vpn_access_sp_bd_mtu), testing::ExitedWithCode(0),
              "^maapi_init_cursor, maapi_find_next, maapi_destroy_cursor, maapi_get_elem, confd_trans_seterr, $");
}

}  // namespace
