#ifndef CONFIG_VALIDATE_COMN_CONFIG_VALIDATE_COMN_H
#define CONFIG_VALIDATE_COMN_CONFIG_VALIDATE_COMN_H

// The access rules that both families share, in the order in which they run. Group and VPN names are in prefixed form.
// Every rule answers 0 (accept), -1 (reject) or -3 (accept with a warning); for the last two the message has been set
// on the transaction, unless the rule says otherwise.

#include <cstdint>
#include <string>
#include <unordered_map>

#include "confd_dp.h"
#include "config_validate_comn/snapshot/access_snapshot.h"

// For each access interface, while the snapshot is being filled.

/// All access interfaces of one VPN have an encapsulation or none has: records the interface's own in the snapshot and
/// rejects when another interface of the VPN differs. 0 or -1. Note that the interface comes before the names.
std::int32_t config_validate_vpn_access_encapsulation(int sock, confd_trans_ctx *tctx, std::string &interface,
                                                      std::string &group, std::string &vpn, bool has_encapsulation,
                                                      st_val_acc_dot1q_vpn_t &snapshot);

/// A VLAN-based attachment claims no VLAN of which its port is a static member in the VLAN manager. 0 or -1.
std::int32_t config_validate_vpn_access_vlm_vlan_based(int sock, confd_trans_ctx *tctx, en_vpn_match_type_t match,
                                                       std::string &group, std::string &vpn, std::string &interface,
                                                       st_acc_dot1q_range_t &range);

/// No two VPNs take one interface whole, and no two hold a VLAN of it in common. 0 or -1.
std::int32_t config_validate_vpn_access_dot1q(int sock, confd_trans_ctx *tctx, std::string &group, std::string &vpn,
                                              std::string &interface, st_acc_dot1q_range_t &range,
                                              st_val_acc_dot1q_vpn_t &snapshot, en_vpn_match_type_t match);

/// A service port serves several VPNs only when each use is VLAN-based. `usage` collects the service ports of one
/// validation call, true for one whose first use was port-based. 0, or -1 without a message: the caller sets it.
std::int32_t validate_service_port(std::string &interface, std::unordered_map<std::string, bool> &usage,
                                   en_vpn_match_type_t match);

// Once a commit, on the filled snapshot.

/// The VLANs and VLAN ranges of the interfaces' encapsulations are within what an interface and the card hold. 0 or -1.
std::int32_t config_validate_select_encap_limit(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot);

/// A port that a changed attachment takes whole is no static member of any VLAN. 0 or -1.
std::int32_t config_validate_vpn_access_vlm_port_based(int sock, confd_trans_ctx *tctx,
                                                       st_val_acc_dot1q_vpn_t &snapshot);

/// A VPLS VPN with a service port keeps its bridge MTU at 2000 or below. 0 or -1.
std::int32_t config_validate_vpn_access_sp_bd_mtu(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot);

/// The port of a changed attachment is no member of an LDP uplink's VLAN. 0 or -3.
std::int32_t config_validate_vpn_access_uplink(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot);

/// Tells of interfaces on which every VPLS VPN will run as transparent LAN service. 0 or -3.
std::int32_t config_validate_vpn_access_tls(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot);

#endif
