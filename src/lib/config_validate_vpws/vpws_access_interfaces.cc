#include "confd_maapi.h"
#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/model_tags.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/access_interface_checks.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "config_validate_comn/snapshot/vpn_names.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "config_validate_vpws/vpws_access_checks.h"

namespace {

/// Records what the transaction does to the access interface's entry as the attachment's change, and returns it.
std::int32_t record_change(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                           const std::string &interface, st_val_acc_dot1q_vpn_t &snapshot) {
  constexpr auto tag = static_cast<std::int32_t>(model_tag::access_interface);
  const std::int32_t mop = get_vpn_mop(sock, tctx, build_vpn_access_config_path(tag, group, vpn, interface));
  if (mop != 0) set_vpn_mop(group, vpn, interface, mop, snapshot);
  return mop;
}

// The VPN id is asserted when the encapsulation check takes it, after the rules that need none.
std::int32_t check_access_interface(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc,
                                    st_val_acc_dot1q_vpn_t &snapshot,
                                    std::unordered_map<std::string, bool> &service_ports) {
  std::string group = kVpwsGroupPrefix + GET_BUF(&mc.keys[0]);
  std::string vpn = kVpnPrefix + GET_BUF(&mc.keys[1]);
  std::string interface = GET_BUF(&mc.keys[3]);
  if (check_interface_name(tctx, group, vpn, interface) != CONFD_OK) return CONFD_ERR;

  const std::int32_t mop = record_change(sock, tctx, group, vpn, interface, snapshot);
  const std::uint32_t vlan = GET_UINT32(&mc.keys[4]);
  const bool has_dot1q = vpws_has_encapsulation_dot1q(sock, tctx, mc);
  const bool has_untagged = vpws_has_encapsulation_untagged(sock, tctx, mc);
  const bool is_vlan_based = has_dot1q || has_untagged || vlan != 0;
  const en_vpn_match_type_t match = is_vlan_based ? VPN_MATCH_DOT1Q : VPN_MATCH_PORT_BASED;
  st_acc_dot1q_range_t range{vlan, vlan};

  if (config_validate_vpws_access_vlm(sock, tctx, group, vpn, interface, range, mop, match) == CONFD_ERR) {
    return CONFD_ERR;
  }
  if (config_validate_vpn_access_dot1q(sock, tctx, group, vpn, interface, range, snapshot, match) == CONFD_ERR) {
    return CONFD_ERR;
  }
  if (config_validate_vpws_access_encap(sock, tctx, group, vpn, GET_UINT32(&mc.keys[2]), interface, vlan, has_untagged,
                                        has_dot1q, snapshot) == CONFD_ERR) {
    return CONFD_ERR;
  }
  return check_service_port_usage(tctx, interface, service_ports, match);
}

}  // namespace

// Interface by interface, the first failing rule decides the message:
// - The element has the interface.
// - The VLAN of a changed attachment is no static member's.
// - Its VLAN, and then its encapsulation, is no other VPN's.
// - A service port is used by one VPN, or VLAN-based by all.
std::int32_t config_validate_vpws_access_dot1q(std::int32_t sock, confd_trans_ctx *tctx,
                                               st_val_acc_dot1q_vpn_t &snapshot,
                                               std::unordered_map<std::string, bool> &service_ports) {
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-vpws-intf-app");
  for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) {
    if (check_access_interface(sock, tctx, mc, snapshot, service_ports) != CONFD_OK) return CONFD_ERR;
  }
  return CONFD_OK;
}
