#include <string>
#include <unordered_map>

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/platform_limits.h"
#include "config_validate_vpn/shared/validation_keepalive.h"
#include "config_validate_vpws/config_validate_vpws.h"

// The whole configuration is examined, whichever node was changed. The two collections fill the snapshot, VPWS first,
// so they run before every rule that reads it. They and the next three reject; a warning of theirs is dropped. The last
// two only warn: the first warning ends the call, and a rejection of theirs would be dropped.
std::int32_t config_validate_vpn_access(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t * /*kp*/,
                                        confd_value_t * /*newval*/) {
  validation_keepalive(tctx);
  st_val_acc_dot1q_vpn_t snapshot;
  std::unordered_map<std::string, bool> service_ports;
  if (config_validate_vpws_access_dot1q(sock, tctx, snapshot, service_ports) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  const auto maximum = static_cast<std::int32_t>(platform_limits.vpls_max_ac_itf);
  if (config_validate_vpls_access_dot1q(sock, tctx, snapshot, maximum, service_ports) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  if (config_validate_select_encap_limit(sock, tctx, snapshot) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  if (config_validate_vpn_access_vlm_port_based(sock, tctx, snapshot) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  if (config_validate_vpn_access_sp_bd_mtu(sock, tctx, snapshot) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  if (config_validate_vpn_access_uplink(sock, tctx, snapshot) == CONFD_VALIDATION_WARN) return CONFD_VALIDATION_WARN;

  validation_keepalive(tctx);
  return config_validate_vpn_access_tls(sock, tctx, snapshot) == CONFD_VALIDATION_WARN ? CONFD_VALIDATION_WARN
                                                                                       : CONFD_OK;
}
