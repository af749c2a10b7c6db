#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_vpws/vpws_access_checks.h"

// An attachment that the transaction leaves alone was checked when it was made: the table is not read for it.
std::int32_t config_validate_vpws_access_vlm(std::int32_t sock, confd_trans_ctx *tctx, std::string &group,
                                             std::string &vpn, std::string &interface, st_acc_dot1q_range_t &range,
                                             const std::int32_t &mop, en_vpn_match_type_t match) {
  if (mop == 0) return CONFD_OK;
  return config_validate_vpn_access_vlm_vlan_based(sock, tctx, match, group, vpn, interface, range);
}
