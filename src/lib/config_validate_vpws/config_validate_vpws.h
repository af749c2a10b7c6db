#ifndef CONFIG_VALIDATE_VPWS_CONFIG_VALIDATE_VPWS_H
#define CONFIG_VALIDATE_VPWS_CONFIG_VALIDATE_VPWS_H

// The VPWS rules, by validation point, in the order in which they run.

#include <cstdint>
#include <string>
#include <unordered_map>

#include "confd_dp.h"
#include "config_validate_comn/access_snapshot.h"

// Access interfaces (vpn_access_valp).

/// Every access interface of every VPWS VPN of the transaction, in list order, against the element and every claim that
/// the snapshot holds by then; records it in the snapshot. Runs before its VPLS counterpart, on the same snapshot and
/// register of service ports. 0, or -1 with the message set. Throws std::bad_array_new_length when an encapsulation's
/// ranges cannot be counted.
std::int32_t config_validate_vpws_access_dot1q(std::int32_t sock, confd_trans_ctx *tctx,
                                               st_val_acc_dot1q_vpn_t &snapshot,
                                               std::unordered_map<std::string, bool> &service_ports);

// Names (vpn_name_valp). The key path and the new value are not used.

/// The names of all VPWS groups, and of each group's VPNs, hold allowed characters only. 0, or -1 with the message set.
std::int32_t config_validate_vpws_group_name(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                             confd_value_t *newval);

// Service ports (vpn_sp_valp). The key path is that of the access interface's entry.

/// A service port that is attached to a VPN has no VLAN action. 0, or -1 with the message set.
std::int32_t config_validate_vpws_service_port(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                               confd_value_t *newval);

#endif
