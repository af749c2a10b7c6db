#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "confd_maapi.h"
#include "config_validate_comn/daemon/static_vlan_members.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/uplink.h"
#include "config_validate_comn/snapshot/access_snapshot.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "config_validate_comn/snapshot/vpn_names.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/validation_keepalive.h"
#include "limid.h"

namespace {

// The identifier manager's failures are not looked at: an ifindex that it does not know has identifier 0 and the empty
// name, which no access interface has.
limid_t get_limid_by_ifindex(std::int32_t ifindex) {
  limid_t limid = 0;
  limid_from_ifindex(ifindex, &limid);
  return limid;
}

std::string get_intf_name_by_limid(limid_t limid) {
  std::array<char, 64> name{};
  limid_to_intfname(limid, name.data(), name.size());
  return {name.data(), strnlen(name.data(), name.size())};
}

bool is_new_member(std::int32_t sock, confd_trans_ctx *tctx, std::int32_t vlan, std::int32_t ifindex) {
  const std::string member =
      std::string(kStaticVlanMembers) + "{1 " + std::to_string(vlan) + " " + std::to_string(ifindex) + "}";
  return get_vpn_mop(sock, tctx, member) == MOP_CREATED;
}

// - A port that carries a port-based VPN takes no static member, whatever the VLAN.
// - A port that carries a VLAN-based VPN takes no static member in one of that VPN's VLANs.
std::int32_t config_validate_vlm_member(confd_trans_ctx *tctx, std::int32_t vlan, const std::string &interface,
                                        const st_val_acc_dot1q_vpn_t &snapshot) {
  group_vpn_id_t other;
  if (has_port_based_vpn_in_interface(snapshot, interface, other)) {
    confd_trans_seterr(tctx, "vlan %d interface %s is already assigned to mpls l2vpn %s %s", vlan, interface.c_str(),
                       other.group_name.c_str(), other.vpn_name.c_str());
    return CONFD_ERR;
  }

  const auto id = static_cast<std::uint32_t>(vlan);
  const st_acc_dot1q_range_t range{id, id};
  if (has_vpn_dot1q_range_overlap(interface, range, snapshot, other)) {
    confd_trans_seterr(
        tctx,
        "vlan %d interface %s is already assigned to mpls l2vpn %s %s with the same dot1q. It must be configured to another dot1q vlan",
        vlan, interface.c_str(), other.group_name.c_str(), other.vpn_name.c_str());
    return CONFD_ERR;
  }
  return CONFD_OK;
}

// An uplink VLAN on a port that carries a VLAN-based VPN draws the warning; port-based VPNs alone draw none.
std::int32_t set_vpn_uplink_warning_msg(confd_trans_ctx *tctx, int vlan, std::string &interface,
                                        const val_ldp_uplink_map_t &uplinks, const st_val_acc_dot1q_vpn_t &snapshot) {
  if (!has_vlan_based_vpn_in_interface(snapshot.intf_map, interface)) return CONFD_OK;
  if (uplinks.count(vlan) == 0) return CONFD_OK;

  confd_trans_seterr(tctx, kVpnUplinkWarning);
  return CONFD_VALIDATION_WARN;
}

// - Only members that the transaction creates are examined.
// - The first member that is rejected ends the walk. A warning does not: a later member can still be rejected, and its
//   message then takes the warning's place. Only one warning is set.
std::int32_t validate_members(std::int32_t sock, confd_trans_ctx *tctx, const val_ldp_uplink_map_t &uplinks,
                              const st_val_acc_dot1q_vpn_t &snapshot) {
  std::int32_t result = CONFD_OK;
  maapi_cursor mc{};
  std::unique_ptr<maapi_cursor, decltype(&maapi_destroy_cursor)> open_cursor(&mc, maapi_destroy_cursor);
  maapi_init_cursor(sock, tctx->thandle, &mc, kStaticVlanMembers);
  for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) {
    validation_keepalive(tctx);
    const std::int32_t vlan = GET_INT32(&mc.keys[1]);
    const std::int32_t ifindex = GET_INT32(&mc.keys[2]);
    if (!is_new_member(sock, tctx, vlan, ifindex)) continue;

    std::string interface = get_intf_name_by_limid(get_limid_by_ifindex(ifindex));
    if (config_validate_vlm_member(tctx, vlan, interface, snapshot) == CONFD_ERR) return CONFD_ERR;
    if (result != CONFD_VALIDATION_WARN && !uplinks.empty()) {
      result = set_vpn_uplink_warning_msg(tctx, vlan, interface, uplinks, snapshot);
    }
  }
  // On purpose not destroyed at the end of the table: the handler's last call to the agent is the move past it, and
  // whatever the agent keeps for the cursor stays with the agent. Every other way out destroys it.
  static_cast<void>(open_cursor.release());
  return result;
}

}  // namespace

std::int32_t config_validate_vlm(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t * /*kp*/,
                                 confd_value_t * /*newval*/) {
  st_val_acc_dot1q_vpn_t snapshot;
  get_vpn_access(sock, tctx, kVplsGroupPrefix, "/internal/int-sub-vpls-vpn-ac", snapshot);
  get_vpn_access(sock, tctx, kVpwsGroupPrefix, "/internal/int-vpws-intf-app", snapshot);
  if (snapshot.intf_map.empty()) return CONFD_OK;

  val_ldp_uplink_map_t uplinks;
  get_ldp_uplink(sock, tctx, uplinks);
  validation_keepalive(tctx);
  return validate_members(sock, tctx, uplinks, snapshot);
}
