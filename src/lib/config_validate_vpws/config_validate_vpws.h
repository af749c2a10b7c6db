#ifndef CONFIG_VALIDATE_VPWS_CONFIG_VALIDATE_VPWS_H
#define CONFIG_VALIDATE_VPWS_CONFIG_VALIDATE_VPWS_H

// The VPWS rules, by validation point, in the order in which they run.

#include <cstdint>

#include "confd_dp.h"

// Names (vpn_name_valp). The key path and the new value are not used.

/// The names of all VPWS groups, and of each group's VPNs, hold allowed characters only. 0, or -1 with the message set.
std::int32_t config_validate_vpws_group_name(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                             confd_value_t *newval);

// Service ports (vpn_sp_valp). The key path is that of the access interface's entry.

/// A service port that is attached to a VPN has no VLAN action. 0, or -1 with the message set.
std::int32_t config_validate_vpws_service_port(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                               confd_value_t *newval);

#endif
