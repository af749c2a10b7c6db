#ifndef CONFIG_VALIDATE_VPN_DRIVERS_VPN_NUM_INSTANCES_H
#define CONFIG_VALIDATE_VPN_DRIVERS_VPN_NUM_INSTANCES_H

#include <cstdint>

#include "confd_dp.h"
#include "config_validate_vpn/shared/vpn_type.h"

/// Counts the VPNs of one family that the transaction would leave configured. A failed count is handed on as it is
/// (-1); a type that is no family counts 0 and reads nothing.
std::int32_t get_vpn_num_instances(std::int32_t sock, confd_trans_ctx *tctx, vpn_app::VpnType type);

#endif
