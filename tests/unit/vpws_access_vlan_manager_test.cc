#include "config_validate_vpws/vpws_access_checks.h"
#include "tests/unit/access_test.h"

namespace {

constexpr const char *kMember =
    "vpws-group west vpn blue interface eth-1 is already assigned to dot1q vlan 10. It must be configured to another dot1q";

struct Case {
  const char *name;
  bool is_member;
  std::int32_t mop;
  en_vpn_match_type_t match;
  const char *message;  ///< empty: accepted
};

void PrintTo(const Case &row, std::ostream *out) { *out << row.name; }

class VpwsAccessVlanManagerTest : public AccessTest, public ::testing::WithParamInterface<Case> {};

TEST_P(VpwsAccessVlanManagerTest, Decides) {
  const Case &row = GetParam();
  if (row.is_member) add_static_member(10, 1001);
  add_router_interface(7, 1001);
  std::string group = "vpws-group west";
  std::string vpn = "vpn blue";
  std::string interface = "eth-1";
  st_acc_dot1q_range_t range{10, 10};

  EXPECT_EQ(config_validate_vpws_access_vlm(sock(), tctx(), group, vpn, interface, range, row.mop, row.match),
            *row.message == '\0' ? 0 : -1);
  EXPECT_EQ(platform.error(), row.message);
  EXPECT_EQ(platform.calls().empty(), row.mop == 0 || row.match == VPN_MATCH_PORT_BASED);
}

INSTANTIATE_TEST_SUITE_P(Rows, VpwsAccessVlanManagerTest,
                         ::testing::Values(Case{"no member", false, MOP_CREATED, VPN_MATCH_DOT1Q, ""},
                                           Case{"member", true, MOP_CREATED, VPN_MATCH_DOT1Q, kMember},
                                           Case{"unchanged member", true, 0, VPN_MATCH_DOT1Q, ""},
                                           Case{"port-based member", true, MOP_CREATED, VPN_MATCH_PORT_BASED, ""}));

}  // namespace
