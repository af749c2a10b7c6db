#include "config_validate_vpn/validation_points.h"

#include <gtest/gtest.h>

namespace {

struct PointCase {
  const char *call_name;
  validation_handler_t handler;
};

const std::vector<PointCase> point_cases{
    {"vpn_overflow_valp", config_validate_vpn_overflow},
    {"vpn_access_intf_valp", config_validate_vpn_access_interface_type},
    {"vpn_access_valp", config_validate_vpn_access},
    {"vpn_peer_valp", config_validate_vpn_peer},
    {"vpn_name_valp", config_validate_vpn_name},
    {"vlm_memb_valp", config_validate_vlm},
    {"vpn_sp_valp", config_validate_sp},
    // A row's name need only begin the call's.
    {"vpn_peer_valp2", config_validate_vpn_peer},
    {"vpn_access_intf_valp_x", config_validate_vpn_access_interface_type},
    {"vpn_access_valp ", config_validate_vpn_access},
    // The call's name must be whole up to there.
    {"vpn_peer_val", nullptr},
    {"vpn_access_intf", nullptr},
    {"VPN_PEER_VALP", nullptr},
    {"xvpn_peer_valp", nullptr},
    {" vpn_peer_valp", nullptr},
    {"vpn_app_validation", nullptr},
    {"", nullptr},
};

TEST(ValidationPointsTest, the_first_row_whose_name_begins_the_calls_name_answers) {
  for (const PointCase &row : point_cases) {
    EXPECT_EQ(find_validation_handler(row.call_name), row.handler) << '"' << row.call_name << '"';
  }
}

}  // namespace
