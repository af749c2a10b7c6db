#ifndef CONFIG_VALIDATE_VPLS_CONFIG_VALIDATE_VPLS_H
#define CONFIG_VALIDATE_VPLS_CONFIG_VALIDATE_VPLS_H

// The VPLS rules, by validation point, in the order in which they run.

#include <cstdint>
#include <string>
#include <unordered_map>

#include "confd_dp.h"
#include "config_validate_comn/snapshot/access_snapshot.h"
#include "config_validate_vpn/shared/pseudowire_map.h"

// Access interfaces (vpn_access_valp).

/// Every access interface of every VPLS VPN of the transaction, in list order, against the element, its VPN and every
/// claim that the snapshot holds by then; records it in the snapshot. Runs after its VPWS counterpart. `maximum` is the
/// most access interfaces of one VPN. 0, or -1 with the message set. Throws std::bad_array_new_length when an
/// encapsulation's ranges cannot be counted.
std::int32_t config_validate_vpls_access_dot1q(std::int32_t sock, confd_trans_ctx *tctx,
                                               st_val_acc_dot1q_vpn_t &snapshot, std::int32_t maximum,
                                               std::unordered_map<std::string, bool> &service_ports);

/// Whether the VPN (bare keys) has more access interfaces than the maximum; the message is then set.
bool config_validate_vpls_max_access_interfaces(std::int32_t sock, confd_trans_ctx *tctx, const char *group,
                                                const char *vpn, std::uint32_t vpn_id, std::int32_t maximum);

// Interface kinds (vpn_access_intf_valp). The key path is that of a leaf of one access interface.

/// All access interfaces of a VPN are service ports or none is. 0, or -1 with the message set.
std::int32_t config_validate_vpls_access_interface_type(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp);

/// A service port needs transparent-LAN-service on its bridge domain. 0, or -1 with the message set.
std::int32_t config_validate_vpls_service_port_config(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp);

// Pseudowires (vpn_peer_valp). Each runs after its VPWS counterpart, on the same map.

/// A pw-id of the transaction is used once towards a neighbour; adds the VPLS pseudowires to the committing map. 0, or
/// -1 with the message set, the map then holding those before the second use.
std::int32_t config_validate_vpls_unique_pw_id(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &committing);

/// Adds the VPLS pseudowires of the running configuration to the running map; a key that is there keeps its pseudowire.
/// Always 0. The socket is not used: the running configuration is read in a CDB session of its own.
std::int32_t fill_config_vpls_peer_running(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &running);

/// The pw-id that the transaction gives the pseudowire as a VPLS neighbour is not one that the running configuration
/// has towards the same neighbour. 0, or -1 with the message set.
std::int32_t config_validate_vpls_pw_id_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                 const st_peer_info_t &pw);

#endif
