#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/interface_encapsulation.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/access_interface_checks.h"
#include "config_validate_comn/snapshot/vpn_names.h"
#include "config_validate_vpls/vpls_access_checks.h"

namespace {

std::string encap_path(std::string_view group, std::string_view vpn, std::uint32_t vpn_id, std::string_view interface,
                       const char *node) {
  return join_path({"/internal/int-vpls-group{", group, "}/int-vpls-vpn{", vpn, " ", decimal_t(vpn_id),
                    "}/int-vpls-bd/int-vpls-ac{", interface, "}/int-vpls-encap/", node});
}

std::string encap_path(const maapi_cursor &mc, const char *node) {
  return encap_path(GET_BUF_VIEW(&mc.keys[0]), GET_BUF_VIEW(&mc.keys[1]), GET_UINT32(&mc.keys[2]),
                    GET_BUF_VIEW(&mc.keys[3]), node);
}

st_acc_dot1q_range_t range_of(const confd_value_t *v) { return {GET_UINT32(&v[0]), GET_UINT32(&v[1])}; }

// Only the minimum is compared: a bridge-domain VLAN further up in the range passes.
std::int32_t check_bridge_domain_vlan(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                                      const std::string &interface, std::uint32_t bd_vlan,
                                      const st_acc_dot1q_range_t &range) {
  if (range.vlan_min != bd_vlan) return CONFD_OK;

  confd_trans_seterr(
      tctx,
      "%s %s interface %s must not be configured with the same dot1q %u between bridge-domain and encapsulation minimum value in the dot1q-range [%u-%u]",
      group.c_str(), vpn.c_str(), interface.c_str(), bd_vlan, range.vlan_min, range.vlan_max);
  return CONFD_ERR;
}

std::int32_t check_ranges(std::int32_t sock, confd_trans_ctx *tctx, std::string &group, std::string &vpn,
                          std::string &interface, std::uint32_t bd_vlan, const encap_ranges_t &ranges,
                          st_val_acc_dot1q_vpn_t &snapshot) {
  const std::int32_t mop = get_vpn_mop(group, vpn, interface, snapshot);
  for (int i = 0; i < ranges.size(); ++i) {
    st_acc_dot1q_range_t range = range_of(ranges.entry(i));
    if (check_bridge_domain_vlan(tctx, group, vpn, interface, bd_vlan, range) == CONFD_ERR ||
        config_validate_vpls_access_vlm(sock, tctx, group, vpn, interface, range, mop, VPN_MATCH_DOT1Q, false) ==
            CONFD_ERR ||
        config_validate_vpn_access_dot1q(sock, tctx, group, vpn, interface, range, snapshot, VPN_MATCH_DOT1Q) ==
            CONFD_ERR) {
      return CONFD_ERR;
    }
  }
  return CONFD_OK;
}

}  // namespace

bool vpls_has_encapsulation_dot1q(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc) {
  const std::string path = encap_path(mc, "int-vpls-encap-dot1q-range");
  return maapi_num_instances(sock, tctx->thandle, "%s", path.c_str()) > 0;
}

bool vpls_has_encapsulation_untagged(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc) {
  return is_configured_untagged(sock, tctx, encap_path(mc, "int-vpls-encap-untagged"));
}

// - Without an encapsulation the attachment holds the bridge-domain VLAN, or the whole port when that is 0.
// - No range begins at the bridge-domain VLAN, is a static member's VLAN, or meets a range of another VPN.
// - No other VPN has the interface untagged.
// - The ranges are recorded after the last of them has passed. The untagged claim comes first, then the bridge-domain
//   VLAN, whose recording turns encap_cfg off again when no range follows.
// - Ranges that are there but cannot be read are accepted, and nothing of the attachment is recorded.
std::int32_t config_validate_vpls_access_encap(std::int32_t sock, confd_trans_ctx *tctx, std::string &group,
                                               std::string &vpn, const std::uint32_t &vpn_id, std::string &interface,
                                               const std::uint32_t &bd_vlan, bool has_untagged, bool has_dot1q,
                                               st_val_acc_dot1q_vpn_t &snapshot) {
  if (!has_untagged && !has_dot1q) {
    return set_vpn_access(group, vpn, interface, VLAN_CFG_BASIC, {bd_vlan, bd_vlan}, snapshot);
  }

  const encap_ranges_t ranges(
      sock, tctx,
      encap_path(bare_group_view(group), bare_vpn_view(vpn), vpn_id, interface, "int-vpls-encap-dot1q-range"));
  if (!ranges.is_read()) return CONFD_OK;
  if (check_ranges(sock, tctx, group, vpn, interface, bd_vlan, ranges, snapshot) == CONFD_ERR) return CONFD_ERR;

  if (has_untagged) {
    if (check_untagged_once(tctx, group, vpn, interface, snapshot) == CONFD_ERR) return CONFD_ERR;
    set_vpn_access(group, vpn, interface, VLAN_CFG_ENCAP, {0, 0}, snapshot);
  }
  if (bd_vlan != 0) set_vpn_access(group, vpn, interface, VLAN_CFG_BASIC, {bd_vlan, bd_vlan}, snapshot);
  for (int i = 0; i < ranges.size(); ++i) {
    set_vpn_access(group, vpn, interface, VLAN_CFG_ENCAP, range_of(ranges.entry(i)), snapshot);
  }
  return CONFD_OK;
}
