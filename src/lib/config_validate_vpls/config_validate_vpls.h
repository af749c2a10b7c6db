#ifndef CONFIG_VALIDATE_VPLS_CONFIG_VALIDATE_VPLS_H
#define CONFIG_VALIDATE_VPLS_CONFIG_VALIDATE_VPLS_H

// The VPLS rules, by validation point, in the order in which they run.

#include <cstdint>

#include "confd_dp.h"

// Interface kinds (vpn_access_intf_valp). The key path is that of a leaf of one access interface.

/// All access interfaces of a VPN are service ports or none is. 0, or -1 with the message set.
std::int32_t config_validate_vpls_access_interface_type(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp);

/// A service port needs transparent-LAN-service on its bridge domain. 0, or -1 with the message set.
std::int32_t config_validate_vpls_service_port_config(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp);

#endif
