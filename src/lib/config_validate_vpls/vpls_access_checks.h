#ifndef CONFIG_VALIDATE_VPLS_VPLS_ACCESS_CHECKS_H
#define CONFIG_VALIDATE_VPLS_VPLS_ACCESS_CHECKS_H

// Private to the VPLS rules: the checks of one access interface that its walk and its encapsulation share. Group and
// VPN are in their prefixed forms. Each answers 0, or -1 with the message set, unless it says otherwise.

#include <cstdint>
#include <string>

#include "confd_dp.h"
#include "confd_maapi.h"
#include "config_validate_comn/snapshot/access_snapshot.h"

/// Whether the access interface that the cursor stands on is untagged, or has a dot1q-range. A failed read says no.
bool vpls_has_encapsulation_untagged(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc);
bool vpls_has_encapsulation_dot1q(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc);

/// An attachment that the transaction changes against IGMP snooping, if that is asked for, and against the VLAN
/// manager's static members. An unchanged attachment passes unread.
std::int32_t config_validate_vpls_access_vlm(std::int32_t sock, confd_trans_ctx *tctx, std::string &group,
                                             std::string &vpn, std::string &interface, st_acc_dot1q_range_t &range,
                                             const std::int32_t &mop, en_vpn_match_type_t match, bool check_igs);

/// The access interface is no interface of the multicast router.
std::int32_t config_validate_vpls_access_igs(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                                             const std::string &vpn, const std::string &interface);

/// The access interface's own encapsulation against the bridge domain and the other VPNs; records the attachment in the
/// snapshot when all of it passes. Throws std::bad_array_new_length when the ranges cannot be counted.
std::int32_t config_validate_vpls_access_encap(std::int32_t sock, confd_trans_ctx *tctx, std::string &group,
                                               std::string &vpn, const std::uint32_t &vpn_id, std::string &interface,
                                               const std::uint32_t &bd_vlan, bool has_untagged, bool has_dot1q,
                                               st_val_acc_dot1q_vpn_t &snapshot);

#endif
