#ifndef CONFIG_VALIDATE_COMN_RULES_ACCESS_INTERFACE_CHECKS_H
#define CONFIG_VALIDATE_COMN_RULES_ACCESS_INTERFACE_CHECKS_H

// What the walks of both families ask of each access interface. Names are in prefixed form. 0, or -1 with the message
// set.

#include <cstdint>
#include <string>
#include <unordered_map>

#include "confd_dp.h"
#include "config_validate_comn/snapshot/access_snapshot.h"

/// The element has an interface of this name.
std::int32_t check_interface_name(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                                  const std::string &interface);

/// No VPN in the snapshot has the interface untagged. An earlier entry of the same VPN counts as well.
std::int32_t check_untagged_once(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                                 const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot);

/// A service port is used by one VPN, or VLAN-based by all; notes this use in the register.
std::int32_t check_service_port_usage(confd_trans_ctx *tctx, std::string &interface,
                                      std::unordered_map<std::string, bool> &usage, en_vpn_match_type_t match);

#endif
