#ifndef CONFIG_VALIDATE_VPN_HANDLERS_H
#define CONFIG_VALIDATE_VPN_HANDLERS_H

#include <cstdint>

#include "confd_dp.h"

/// What a validation point calls: the MAAPI socket, the transaction, the key path of the node under validation and its
/// new value. Answers 0 (accept), -1 (reject) or -3 (accept with a warning); for the last two the text has been set on
/// the transaction.
using validation_handler_t = std::int32_t (*)(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                              confd_value_t *newval);

/// The VPNs of both families together are within what the card allows. 0 or -1.
std::int32_t config_validate_vpn_overflow(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                          confd_value_t *newval);

/// The access interfaces of a VPLS VPN are of one kind, and a service port has transparent-LAN-service. 0 or -1: a
/// warning of either rule is dropped.
std::int32_t config_validate_vpn_access_interface_type(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                                       confd_value_t *newval);

/// Every access interface of both families against every other claim on its port. 0, -1 or -3.
std::int32_t config_validate_vpn_access(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                        confd_value_t *newval);

/// The pseudowires: their number, a pw-id once a neighbour, no pw-id moved in one commit. 0 or -1.
std::int32_t config_validate_vpn_peer(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                      confd_value_t *newval);

/// The characters of VPWS group and VPN names. Answers what the name rule answers.
std::int32_t config_validate_vpn_name(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                      confd_value_t *newval);

/// Every static VLAN member that the transaction adds against the VPNs on its port. 0, -1 or -3.
std::int32_t config_validate_vlm(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval);

/// A service port in a VPWS VPN has no VLAN action. 0 or -1: a warning of the rule is dropped.
std::int32_t config_validate_sp(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval);

#endif
