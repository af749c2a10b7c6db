#include "config_validate_comn/config_validate_comn.h"
#include "tests/unit/access_test.h"

namespace {

class Dot1qConflictTest : public AccessTest {
 protected:
  std::int32_t verdict(en_vpn_match_type_t match, st_acc_dot1q_range_t range) {
    return config_validate_vpn_access_dot1q(sock(), tctx(), group, vpn, interface, range, snapshot, match);
  }

  std::string group = "vpls-group north";
  std::string vpn = "vpn red";
  std::string interface = "eth-1";
};

struct Record {
  const char *group;
  const char *vpn;
  const char *interface;
  vlan_cfg_type_t source;
  st_acc_dot1q_range_t range;
};

struct ConflictCase {
  const char *name;
  std::vector<Record> records;
  en_vpn_match_type_t match;
  st_acc_dot1q_range_t range;
  const char *message;  ///< empty: accepted
};

void PrintTo(const ConflictCase &row, std::ostream *out) { *out << row.name; }

constexpr const char *kPortBasedConflict =
    "vpls-group north vpn red & vpws-group west vpn blue must not be configured to the same interface eth-1 on port-based VPNs";
constexpr const char *kSameDot1q =
    "vpls-group north vpn red and vpws-group west vpn blue must not be configured with the same dot1q on interface eth-1";

const std::vector<ConflictCase> conflict_cases{
    {"port-based on an unused interface", {}, VPN_MATCH_PORT_BASED, {0, 0}, ""},
    {"port-based next to port-based",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {0, 0}}},
     VPN_MATCH_PORT_BASED,
     {0, 0},
     kPortBasedConflict},
    {"port-based, the other one on another interface",
     {{"vpws-group west", "vpn blue", "eth-2", VLAN_CFG_BASIC, {0, 0}}},
     VPN_MATCH_PORT_BASED,
     {0, 0},
     ""},
    {"port-based next to untagged",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_ENCAP, {0, 0}}},
     VPN_MATCH_PORT_BASED,
     {0, 0},
     ""},
    {"port-based next to VLAN-based",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {10, 10}}},
     VPN_MATCH_PORT_BASED,
     {0, 0},
     ""},
    {"VLAN-based next to port-based",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {0, 0}}},
     VPN_MATCH_DOT1Q,
     {10, 10},
     ""},
    {"the same VLAN",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {10, 10}}},
     VPN_MATCH_DOT1Q,
     {10, 10},
     kSameDot1q},
    {"the next VLAN",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {10, 10}}},
     VPN_MATCH_DOT1Q,
     {11, 11},
     ""},
    {"the same VLAN on another interface",
     {{"vpws-group west", "vpn blue", "eth-2", VLAN_CFG_BASIC, {10, 10}}},
     VPN_MATCH_DOT1Q,
     {10, 10},
     ""},
    {"ranges with one VLAN in common",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_ENCAP, {20, 30}}},
     VPN_MATCH_DOT1Q,
     {10, 20},
     kSameDot1q},
    {"ranges side by side",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_ENCAP, {21, 30}}},
     VPN_MATCH_DOT1Q,
     {10, 20},
     ""},
    {"without a dot1q nothing is compared",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {5, 5}}},
     VPN_MATCH_DOT1Q,
     {0, 10},
     ""},
    {"the VPN's own record counts",
     {{"vpls-group north", "vpn red", "eth-1", VLAN_CFG_BASIC, {10, 10}}},
     VPN_MATCH_DOT1Q,
     {10, 10},
     "vpls-group north vpn red and vpls-group north vpn red must not be configured with the same dot1q on interface eth-1"},
    {"of two conflicts the first in key order is named",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {10, 10}},
      {"vpls-group east", "vpn green", "eth-1", VLAN_CFG_ENCAP, {11, 20}}},
     VPN_MATCH_DOT1Q,
     {10, 20},
     "vpls-group north vpn red and vpls-group east vpn green must not be configured with the same dot1q on interface eth-1"},
    {"another match type is accepted",
     {{"vpws-group west", "vpn blue", "eth-1", VLAN_CFG_BASIC, {10, 10}},
      {"vpws-group west", "vpn green", "eth-1", VLAN_CFG_BASIC, {0, 0}}},
     static_cast<en_vpn_match_type_t>(3),
     {10, 10},
     ""},
};

class Dot1qConflictTableTest : public Dot1qConflictTest, public ::testing::WithParamInterface<ConflictCase> {};

TEST_P(Dot1qConflictTableTest, decides) {
  const ConflictCase &row = GetParam();
  for (const Record &r : row.records) record(r.group, r.vpn, r.interface, r.source, r.range);

  EXPECT_EQ(verdict(row.match, row.range), *row.message == '\0' ? 0 : -1);
  EXPECT_EQ(platform.calls(), *row.message == '\0' ? Calls{} : Calls{std::string("confd_trans_seterr ") + row.message})
      << "the snapshot alone is asked";
}

INSTANTIATE_TEST_SUITE_P(Rows, Dot1qConflictTableTest, ::testing::ValuesIn(conflict_cases));

}  // namespace
