#include "config_validate_comn/rules/access_interface_checks.h"

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "limid.h"

std::int32_t check_interface_name(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                                  const std::string &interface) {
  if (valid_intfname(interface.c_str())) return CONFD_OK;

  confd_trans_seterr(tctx, "%s %s interface is not valid. Verify available interfaces", group.c_str(), vpn.c_str());
  return CONFD_ERR;
}

std::int32_t check_untagged_once(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn,
                                 const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  group_vpn_id_t other;
  if (!has_encapsulation_untagged_in_interface(interface, snapshot, other)) return CONFD_OK;

  confd_trans_seterr(tctx, "%s encapsulation untagged cannot be set simultaneously in %s %s and %s %s",
                     interface.c_str(), group.c_str(), vpn.c_str(), other.group_name.c_str(), other.vpn_name.c_str());
  return CONFD_ERR;
}

std::int32_t check_service_port_usage(confd_trans_ctx *tctx, std::string &interface,
                                      std::unordered_map<std::string, bool> &usage, en_vpn_match_type_t match) {
  if (validate_service_port(interface, usage, match) == CONFD_OK) return CONFD_OK;

  confd_trans_seterr(tctx, "%s cannot be used on port-based and VLAN based VPNs at the same time", interface.c_str());
  return CONFD_ERR;
}
