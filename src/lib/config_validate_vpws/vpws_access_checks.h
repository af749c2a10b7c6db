#ifndef CONFIG_VALIDATE_VPWS_VPWS_ACCESS_CHECKS_H
#define CONFIG_VALIDATE_VPWS_VPWS_ACCESS_CHECKS_H

// Private to the VPWS rules: the checks of one access interface that its walk and its encapsulation share. Group and
// VPN are in their prefixed forms. Each answers 0, or -1 with the message set, unless it says otherwise.

#include <cstdint>
#include <string>

#include "confd_dp.h"
#include "confd_maapi.h"
#include "config_validate_comn/snapshot/access_snapshot.h"

/// Whether the access interface that the cursor stands on has a dot1q-range, or is untagged. A failed read says no. The
/// cursor's names must be known to be names.
bool vpws_has_encapsulation_dot1q(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc);
bool vpws_has_encapsulation_untagged(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc);

/// An attachment that the transaction changes against the VLAN manager's static members. An unchanged attachment passes
/// unread.
std::int32_t config_validate_vpws_access_vlm(std::int32_t sock, confd_trans_ctx *tctx, std::string &group,
                                             std::string &vpn, std::string &interface, st_acc_dot1q_range_t &range,
                                             const std::int32_t &mop, en_vpn_match_type_t match);

/// The access interface's own encapsulation against the other VPNs; records the attachment in the snapshot when all of
/// it passes. Throws std::bad_array_new_length when the ranges cannot be counted.
std::int32_t config_validate_vpws_access_encap(std::int32_t sock, confd_trans_ctx *tctx, std::string &group,
                                               std::string &vpn, const std::uint32_t &vpn_id, std::string &interface,
                                               const std::uint32_t &basic_vlan, bool has_untagged, bool has_dot1q,
                                               st_val_acc_dot1q_vpn_t &snapshot);

/// No other VPN has the interface untagged; records that this one has.
std::int32_t config_validate_vpws_access_untagged(confd_trans_ctx *tctx, std::string &group, std::string &vpn,
                                                  std::string &interface, bool has_untagged,
                                                  st_val_acc_dot1q_vpn_t &snapshot);

#endif
