#ifndef CONFIG_VALIDATE_COMN_DAEMON_STATIC_VLAN_MEMBERS_H
#define CONFIG_VALIDATE_COMN_DAEMON_STATIC_VLAN_MEMBERS_H

#include <cstdint>

#include "confd_dp.h"
#include "confd_maapi.h"

/// The VLAN manager's static members. Keys of an entry: a C_UINT32 that is always 1, the VLAN (C_INT32) and the member
/// port's ifindex (C_INT32).
constexpr const char *kStaticVlanMembers =
    "/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";

/// Whether the port is a static member of the VLAN in the transaction. A failed look-up counts as no member.
inline bool is_static_vlan_member(std::int32_t sock, confd_trans_ctx *tctx, std::int32_t vlan, std::int32_t ifindex) {
  return maapi_exists(sock, tctx->thandle, "%s{1 %d %d}", kStaticVlanMembers, vlan, ifindex) == 1;
}

#endif
