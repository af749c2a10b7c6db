#include <array>

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/interface_identifiers.h"
#include "config_validate_comn/daemon/static_vlan_members.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "config_validate_vpn/shared/validation_keepalive.h"

namespace {

struct claim_t {
  const std::string &group;
  const std::string &vpn;
  const std::string &interface;
  std::int32_t ifindex;
};

std::int32_t reject_assigned_vlan(confd_trans_ctx *tctx, const claim_t &claim, std::int32_t vlan) {
  confd_trans_seterr(tctx,
                     "%s %s interface %s is already assigned to dot1q vlan %d. It must be configured to another dot1q",
                     claim.group.c_str(), claim.vpn.c_str(), claim.interface.c_str(), vlan);
  return CONFD_ERR;
}

std::int32_t check_vlan(int sock, confd_trans_ctx *tctx, const claim_t &claim, std::int32_t vlan) {
  if (!is_static_vlan_member(sock, tctx, vlan, claim.ifindex)) return CONFD_OK;
  return reject_assigned_vlan(tctx, claim, vlan);
}

void find_first_member_from(scoped_cursor &mc, std::int32_t vlan) {
  std::array<confd_value_t, 3> keys{};
  keys[0].type = C_UINT32;
  keys[0].val.u32 = 1;
  keys[1].type = C_INT32;
  keys[1].val.i32 = vlan;
  keys[2].type = C_INT32;
  keys[2].val.i32 = 0;
  maapi_find_next(&mc, CONFD_FIND_SAME_OR_NEXT, keys.data(), static_cast<int>(keys.size()));
}

// Only the lowest VLAN of the range that has a static member on any port is looked at, so that one interface costs one
// look-up: a member on this port at a higher VLAN passes when a lower VLAN of the range has members on other ports
// only.
std::int32_t check_vlan_range(int sock, confd_trans_ctx *tctx, const claim_t &claim, std::int32_t first,
                              std::int32_t last) {
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, kStaticVlanMembers);
  find_first_member_from(mc, first);
  if (mc.n == 0) return CONFD_OK;

  const std::int32_t vlan = GET_INT32(&mc.keys[1]);
  if (vlan < first || vlan > last) return CONFD_OK;
  const bool is_this_port = GET_INT32(&mc.keys[2]) == claim.ifindex;
  if (!is_this_port && !is_static_vlan_member(sock, tctx, vlan, claim.ifindex)) return CONFD_OK;
  return reject_assigned_vlan(tctx, claim, vlan);
}

}  // namespace

// - A port-based access interface is the other rule's concern; every other match type is taken as VLAN-based.
// - The port must not be a static member of the VLAN, nor of the lowest VLAN of the range that has a member. VLAN 0 is
//   looked up as any other.
std::int32_t config_validate_vpn_access_vlm_vlan_based(int sock, confd_trans_ctx *tctx, en_vpn_match_type_t match,
                                                       std::string &group, std::string &vpn, std::string &interface,
                                                       st_acc_dot1q_range_t &range) {
  if (match == VPN_MATCH_PORT_BASED) return CONFD_OK;

  const claim_t claim{group, vpn, interface, get_ifindex_by_limid(get_limid_by_intf_name(interface))};
  const auto first = static_cast<std::int32_t>(range.vlan_min);
  const auto last = static_cast<std::int32_t>(range.vlan_max);
  if (first == last) return check_vlan(sock, tctx, claim, first);
  return check_vlan_range(sock, tctx, claim, first, last);
}

// - Nothing is read unless the transaction changes a port-based access interface.
// - The port of no static member may carry a changed port-based VPN. Members come in table order, so the message names
//   the lowest VLAN of the first such port.
std::int32_t config_validate_vpn_access_vlm_port_based(int sock, confd_trans_ctx *tctx,
                                                       st_val_acc_dot1q_vpn_t &snapshot) {
  if (!has_modified_port_based_vpn(snapshot)) return CONFD_OK;

  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, kStaticVlanMembers);
  maapi_get_next(&mc);
  while (mc.n != 0) {
    const std::string interface = get_intf_name_by_limid(get_limid_by_ifindex(GET_INT32(&mc.keys[2])));
    group_vpn_id_t other;
    if (has_modified_port_based_vpn_in_interface(snapshot, interface, other)) {
      confd_trans_seterr(
          tctx, "%s %s interface %s is already assigned to dot1q vlan %d and can not be configured on a port-based VPN",
          other.group_name.c_str(), other.vpn_name.c_str(), interface.c_str(), GET_INT32(&mc.keys[1]));
      return CONFD_ERR;
    }
    maapi_get_next(&mc);
    validation_keepalive(tctx);
  }
  return CONFD_OK;
}
