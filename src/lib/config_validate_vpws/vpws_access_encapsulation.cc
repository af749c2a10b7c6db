#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/interface_encapsulation.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/access_interface_checks.h"
#include "config_validate_comn/snapshot/vpn_names.h"
#include "config_validate_vpws/vpws_access_checks.h"

namespace {

std::string encap_path(std::string_view group, std::string_view vpn, std::uint32_t vpn_id, std::string_view interface,
                       const char *node) {
  return join_path(
      {"/internal/int-vpws-intf-encap{", group, " ", vpn, " ", decimal_t(vpn_id), " ", interface, "}/", node});
}

// The id's type is not looked at: a VPN that another rule refuses is refused by that rule's message, and only an
// attachment that is to be recorded stops on an id that is none.
std::string encap_path(const maapi_cursor &mc, const char *node) {
  return encap_path(GET_BUF_VIEW(&mc.keys[0]), GET_BUF_VIEW(&mc.keys[1]), mc.keys[2].val.u32, GET_BUF_VIEW(&mc.keys[3]),
                    node);
}

st_acc_dot1q_range_t range_of(const confd_value_t *v) { return {GET_UINT32(&v[0]), GET_UINT32(&v[1])}; }

std::int32_t check_ranges(std::int32_t sock, confd_trans_ctx *tctx, std::string &group, std::string &vpn,
                          std::string &interface, const encap_ranges_t &ranges, st_val_acc_dot1q_vpn_t &snapshot) {
  const std::int32_t mop = get_vpn_mop(group, vpn, interface, snapshot);
  for (int i = 0; i < ranges.size(); ++i) {
    st_acc_dot1q_range_t range = range_of(ranges.entry(i));
    if (config_validate_vpws_access_vlm(sock, tctx, group, vpn, interface, range, mop, VPN_MATCH_DOT1Q) == CONFD_ERR ||
        config_validate_vpn_access_dot1q(sock, tctx, group, vpn, interface, range, snapshot, VPN_MATCH_DOT1Q) ==
            CONFD_ERR) {
      return CONFD_ERR;
    }
  }
  return CONFD_OK;
}

}  // namespace

bool vpws_has_encapsulation_dot1q(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc) {
  const std::string path = encap_path(mc, "int-vpws-encap-dot1q-range");
  return maapi_num_instances(sock, tctx->thandle, "%s", path.c_str()) > 0;
}

bool vpws_has_encapsulation_untagged(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc) {
  return is_configured_untagged(sock, tctx, encap_path(mc, "int-vpws-encap-untagged"));
}

std::int32_t config_validate_vpws_access_untagged(confd_trans_ctx *tctx, std::string &group, std::string &vpn,
                                                  std::string &interface, bool has_untagged,
                                                  st_val_acc_dot1q_vpn_t &snapshot) {
  if (!has_untagged) return CONFD_OK;
  if (check_untagged_once(tctx, group, vpn, interface, snapshot) != CONFD_OK) return CONFD_ERR;
  return set_vpn_access(group, vpn, interface, VLAN_CFG_ENCAP, {0, 0}, snapshot);
}

// - Without an encapsulation the attachment holds its basic VLAN, or the whole port when that is 0.
// - No range is a static member's VLAN or meets a range of another VPN. A range may begin at the basic VLAN.
// - No other VPN has the interface untagged.
// - The ranges are recorded after the last of them has passed. The untagged claim comes first, then the basic VLAN,
//   whose recording turns encap_cfg off again when no range follows.
// - Ranges that are there but cannot be read are accepted, and nothing of the attachment is recorded.
std::int32_t config_validate_vpws_access_encap(std::int32_t sock, confd_trans_ctx *tctx, std::string &group,
                                               std::string &vpn, const std::uint32_t &vpn_id, std::string &interface,
                                               const std::uint32_t &basic_vlan, bool has_untagged, bool has_dot1q,
                                               st_val_acc_dot1q_vpn_t &snapshot) {
  if (!has_untagged && !has_dot1q) {
    return set_vpn_access(group, vpn, interface, VLAN_CFG_BASIC, {basic_vlan, basic_vlan}, snapshot);
  }

  const encap_ranges_t ranges(
      sock, tctx,
      encap_path(bare_group_view(group), bare_vpn_view(vpn), vpn_id, interface, "int-vpws-encap-dot1q-range"));
  if (!ranges.is_read()) return CONFD_OK;
  if (check_ranges(sock, tctx, group, vpn, interface, ranges, snapshot) == CONFD_ERR) return CONFD_ERR;
  if (config_validate_vpws_access_untagged(tctx, group, vpn, interface, has_untagged, snapshot) == CONFD_ERR) {
    return CONFD_ERR;
  }
  if (basic_vlan != 0) set_vpn_access(group, vpn, interface, VLAN_CFG_BASIC, {basic_vlan, basic_vlan}, snapshot);
  for (int i = 0; i < ranges.size(); ++i) {
    set_vpn_access(group, vpn, interface, VLAN_CFG_ENCAP, range_of(ranges.entry(i)), snapshot);
  }
  return CONFD_OK;
}
