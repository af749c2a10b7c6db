#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/snapshot/snapshot_queries.h"

namespace {

std::int32_t reject_second_port_based(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                                      const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  group_vpn_id_t other;
  if (!has_port_based_vpn_in_interface(snapshot, interface, other)) return CONFD_OK;

  confd_trans_seterr(tctx, "%s %s & %s %s must not be configured to the same interface %s on port-based VPNs",
                     group.c_str(), vpn.c_str(), other.group_name.c_str(), other.vpn_name.c_str(), interface.c_str());
  return CONFD_ERR;
}

std::int32_t reject_same_dot1q(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                               const std::string &interface, const st_acc_dot1q_range_t &range,
                               const st_val_acc_dot1q_vpn_t &snapshot) {
  if (range.vlan_min == 0) return CONFD_OK;
  group_vpn_id_t other;
  if (!has_vpn_dot1q_range_overlap(interface, range, snapshot, other)) return CONFD_OK;

  confd_trans_seterr(tctx, "%s %s and %s %s must not be configured with the same dot1q on interface %s", group.c_str(),
                     vpn.c_str(), other.group_name.c_str(), other.vpn_name.c_str(), interface.c_str());
  return CONFD_ERR;
}

}  // namespace

// - Port-based: no VPN on the interface may be port-based already.
// - VLAN-based with a dot1q: no VPN on the interface may hold a VLAN of the range. A VPN counts even when it is the
//   range's own, so a (group, VPN, interface) that occurs twice conflicts with itself.
// - VLAN-based without a dot1q, and any other match type: nothing to compare.
std::int32_t config_validate_vpn_access_dot1q(int /*sock*/, confd_trans_ctx *tctx, std::string &group, std::string &vpn,
                                              std::string &interface, st_acc_dot1q_range_t &range,
                                              st_val_acc_dot1q_vpn_t &snapshot, en_vpn_match_type_t match) {
  switch (match) {
    case VPN_MATCH_PORT_BASED:
      return reject_second_port_based(tctx, group, vpn, interface, snapshot);
    case VPN_MATCH_DOT1Q:
      return reject_same_dot1q(tctx, group, vpn, interface, range, snapshot);
  }
  return CONFD_OK;
}
