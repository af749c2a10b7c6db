#include "config_validate_vpn/validation_points.h"

#include <array>
#include <cstring>

namespace {

struct validation_point_t {
  validation_handler_t handler;
  const char *name;
};

constexpr std::array<validation_point_t, 7> kValidationPoints{{
    {config_validate_vpn_overflow, "vpn_overflow_valp"},
    {config_validate_vpn_access_interface_type, "vpn_access_intf_valp"},
    {config_validate_vpn_access, "vpn_access_valp"},
    {config_validate_vpn_peer, "vpn_peer_valp"},
    {config_validate_vpn_name, "vpn_name_valp"},
    {config_validate_vlm, "vlm_memb_valp"},
    {config_validate_sp, "vpn_sp_valp"},
}};

}  // namespace

validation_handler_t find_validation_handler(const char *call_name) {
  for (const validation_point_t &point : kValidationPoints) {
    if (std::strncmp(call_name, point.name, std::strlen(point.name)) == 0) return point.handler;
  }
  return nullptr;
}
