#include "config_validate_vpls/vpls_access_checks.h"
#include "tests/unit/access_test.h"

namespace {

constexpr const char *kSnooping =
    "vpls-group north vpn red interface eth-1 is already assigned to multicast igmp snooping 7";
constexpr const char *kMember =
    "vpls-group north vpn red interface eth-1 is already assigned to dot1q vlan 10. It must be configured to another dot1q";

struct Case {
  const char *name;
  bool is_router_interface;
  bool is_member;
  std::int32_t mop;
  en_vpn_match_type_t match;
  bool check_igs;
  const char *message;  ///< empty: accepted
};

void PrintTo(const Case &row, std::ostream *out) { *out << row.name; }

class VplsAccessVlanManagerTest : public AccessTest, public ::testing::WithParamInterface<Case> {};

TEST_P(VplsAccessVlanManagerTest, Decides) {
  const Case &row = GetParam();
  if (row.is_router_interface) add_router_interface(7, 1001);
  if (row.is_member) add_static_member(10, 1001);
  std::string group = "vpls-group north";
  std::string vpn = "vpn red";
  std::string interface = "eth-1";
  st_acc_dot1q_range_t range{10, 10};

  EXPECT_EQ(
      config_validate_vpls_access_vlm(sock(), tctx(), group, vpn, interface, range, row.mop, row.match, row.check_igs),
      *row.message == '\0' ? 0 : -1);
  EXPECT_EQ(platform.error(), row.message);
  EXPECT_EQ(platform.calls().empty(), row.mop == 0) << "nothing is read for an unchanged attachment";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, VplsAccessVlanManagerTest,
    ::testing::Values(Case{"neither", false, false, MOP_CREATED, VPN_MATCH_DOT1Q, true, ""},
                      Case{"member", false, true, MOP_CREATED, VPN_MATCH_DOT1Q, true, kMember},
                      Case{"router interface", true, false, MOP_CREATED, VPN_MATCH_DOT1Q, true, kSnooping},
                      Case{"both: snooping first", true, true, MOP_MODIFIED, VPN_MATCH_DOT1Q, true, kSnooping},
                      Case{"snooping not asked for", true, true, MOP_CREATED, VPN_MATCH_DOT1Q, false, kMember},
                      Case{"unchanged", true, true, 0, VPN_MATCH_DOT1Q, true, ""},
                      Case{"port-based member", false, true, MOP_CREATED, VPN_MATCH_PORT_BASED, true, ""},
                      Case{"port-based router interface", true, false, MOP_CREATED, VPN_MATCH_PORT_BASED, true,
                           kSnooping}));

}  // namespace
