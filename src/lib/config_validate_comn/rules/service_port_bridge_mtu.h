#ifndef CONFIG_VALIDATE_COMN_RULES_SERVICE_PORT_BRIDGE_MTU_H
#define CONFIG_VALIDATE_COMN_RULES_SERVICE_PORT_BRIDGE_MTU_H

#include <string>

#include "confd_dp.h"

/// The path of the bridge-domain MTU that the VPLS application keeps for a VPN, cut to 511 characters. Group and VPN
/// are in their prefixed forms. Reads the VPN's identifier; a VPN without one gets the path of identifier 0.
std::string build_low_level_vpls_vpn_bd_mtu_path(int sock, confd_trans_ctx *tctx, const std::string &group,
                                                 const std::string &vpn);

#endif
