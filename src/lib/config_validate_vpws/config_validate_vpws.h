#ifndef CONFIG_VALIDATE_VPWS_CONFIG_VALIDATE_VPWS_H
#define CONFIG_VALIDATE_VPWS_CONFIG_VALIDATE_VPWS_H

// The VPWS rules, by validation point, in the order in which they run.

#include <cstdint>
#include <string>
#include <unordered_map>

#include "confd_dp.h"
#include "config_validate_comn/snapshot/access_snapshot.h"
#include "config_validate_vpn/shared/pseudowire_map.h"

// Access interfaces (vpn_access_valp).

/// Every access interface of every VPWS VPN of the transaction, in list order, against the element and every claim that
/// the snapshot holds by then; records it in the snapshot. Runs before its VPLS counterpart, on the same snapshot and
/// register of service ports. 0, or -1 with the message set. Throws std::bad_array_new_length when an encapsulation's
/// ranges cannot be counted.
std::int32_t config_validate_vpws_access_dot1q(std::int32_t sock, confd_trans_ctx *tctx,
                                               st_val_acc_dot1q_vpn_t &snapshot,
                                               std::unordered_map<std::string, bool> &service_ports);

// Pseudowires (vpn_peer_valp). Each runs before its VPLS counterpart, on the same map.

/// A pw-id of the transaction is used once towards a neighbour or backup neighbour; adds the VPWS pseudowires to the
/// committing map. 0, or -1 with the message set, the map then holding those before the second use.
std::int32_t config_validate_vpws_unique_pw_id(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &committing);

/// Adds the VPWS pseudowires of the running configuration to the running map; a key that is there keeps its pseudowire.
/// Always 0. The socket is not used: the running configuration is read in a CDB session of its own.
std::int32_t fill_config_vpws_peer_running(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &running);

/// The pw-id that the transaction gives the pseudowire as a VPWS neighbour, or else as a backup neighbour, is not one
/// that the running configuration has towards the same neighbour. 0, or -1 with the message set.
std::int32_t config_validate_vpws_pw_id_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                 const st_peer_info_t &pw);

// Names (vpn_name_valp).

/// The names of all VPWS groups, and of each group's VPNs, hold allowed characters only. The key path and the new value
/// are not used: all names are looked at, whichever changed. 0, or -1 with the message set.
std::int32_t config_validate_vpws_group_name(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                             confd_value_t *newval);

/// The names of one group's VPNs hold allowed characters only; `group` is the bare key. 0, or -1 with the message set.
std::int32_t config_validate_vpws_vpn_name(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group);

/// The internal id of a VPWS VPN, by the bare keys of its group and itself; 0 when there is no such VPN. Offered to the
/// daemon's other libraries: no rule uses it.
std::uint32_t get_int_vpws_id(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                              const std::string &vpn);

// Service ports (vpn_sp_valp). The key path is that of the access interface's entry.

/// A service port that is attached to a VPN has no VLAN action. 0, or -1 with the message set.
std::int32_t config_validate_vpws_service_port(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                               confd_value_t *newval);

#endif
