#include "config_validate_comn/rules/uplink.h"

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/interface_identifiers.h"
#include "config_validate_comn/daemon/static_vlan_members.h"
#include "config_validate_comn/daemon/value_assert.h"

namespace {

constexpr const char *kLdpInterfaces = "/internal/int-ldp-intf-l3";

bool is_member_of_uplink_vlan(int sock, confd_trans_ctx *tctx, const std::string &interface,
                              const val_ldp_uplink_map_t &uplinks) {
  const std::int32_t ifindex = get_ifindex_by_limid(get_limid_by_intf_name(interface));
  for (const auto &[vlan, uplink] : uplinks) {
    if (is_static_vlan_member(sock, tctx, vlan, ifindex)) return true;
  }
  return false;
}

}  // namespace

std::int32_t get_ldp_uplink(std::int32_t sock, confd_trans_ctx *tctx, val_ldp_uplink_map_t &uplinks) {
  if (maapi_num_instances(sock, tctx->thandle, kLdpInterfaces) <= 0) {
    uplinks.clear();
    return CONFD_OK;
  }

  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, kLdpInterfaces);
  for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) {
    std::string name = GET_BUF(&mc.keys[0]);
    uplinks.emplace(std::stoi(GET_BUF(&mc.keys[2])), std::move(name));
  }
  return CONFD_OK;
}

// - Without LDP uplinks nothing is looked up.
// - An access interface that the transaction changes draws the warning when its port is a static member of an uplink's
//   VLAN. The text is the same whichever interface it is, so the first ends the walk.
std::int32_t config_validate_vpn_access_uplink(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  val_ldp_uplink_map_t uplinks;
  get_ldp_uplink(sock, tctx, uplinks);
  if (uplinks.empty()) return CONFD_OK;

  for (const auto &[interface, vpns] : snapshot.intf_map) {
    for (const auto &[id, record] : vpns) {
      if (get_vpn_mop(id.group_name, id.vpn_name, interface, snapshot) == 0) continue;
      if (!is_member_of_uplink_vlan(sock, tctx, interface, uplinks)) continue;
      confd_trans_seterr(tctx, kVpnUplinkWarning);
      return CONFD_VALIDATION_WARN;
    }
  }
  return CONFD_OK;
}
