#include <gtest/gtest.h>

#include "config_validate_comn/config_validate_comn.h"

namespace {

using Register = std::unordered_map<std::string, bool>;

constexpr auto kNeither = static_cast<en_vpn_match_type_t>(2);

struct UsageCase {
  const char *name;
  const char *interface;
  Register before;
  en_vpn_match_type_t match;
  std::int32_t verdict;
  Register after;
};

const std::vector<UsageCase> usage_cases{
    {"first use, VLAN-based", "service-port-1", {}, VPN_MATCH_DOT1Q, 0, {{"service-port-1", false}}},
    {"first use, port-based", "service-port-1", {}, VPN_MATCH_PORT_BASED, 0, {{"service-port-1", true}}},
    {"first use, neither", "service-port-1", {}, kNeither, 0, {{"service-port-1", false}}},
    {"both VLAN-based", "service-port-1", {{"service-port-1", false}}, VPN_MATCH_DOT1Q, 0, {{"service-port-1", false}}},
    {"port-based after VLAN-based",
     "service-port-1",
     {{"service-port-1", false}},
     VPN_MATCH_PORT_BASED,
     -1,
     {{"service-port-1", false}}},
    {"VLAN-based after port-based",
     "service-port-1",
     {{"service-port-1", true}},
     VPN_MATCH_DOT1Q,
     -1,
     {{"service-port-1", true}}},
    {"both port-based",
     "service-port-1",
     {{"service-port-1", true}},
     VPN_MATCH_PORT_BASED,
     -1,
     {{"service-port-1", true}}},
    {"another service port is a first use",
     "service-port-2",
     {{"service-port-1", true}},
     VPN_MATCH_PORT_BASED,
     0,
     {{"service-port-1", true}, {"service-port-2", true}}},
    {"the word in the middle counts", "my-service-port", {}, VPN_MATCH_PORT_BASED, 0, {{"my-service-port", true}}},
    {"without a dash behind it counts", "service-port", {}, VPN_MATCH_DOT1Q, 0, {{"service-port", false}}},
    {"another interface is not remembered", "service-por", {}, VPN_MATCH_PORT_BASED, 0, {}},
    {"another interface is not compared", "eth-1", {{"eth-1", true}}, VPN_MATCH_PORT_BASED, 0, {{"eth-1", true}}},
};

TEST(ServicePortUsageTest, serves_several_vpns_only_vlan_based) {
  for (const UsageCase &row : usage_cases) {
    SCOPED_TRACE(row.name);
    std::string interface = row.interface;
    Register usage = row.before;
    EXPECT_EQ(validate_service_port(interface, usage, row.match), row.verdict);
    EXPECT_EQ(usage, row.after);
  }
}

}  // namespace
