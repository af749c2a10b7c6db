#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/validation_keepalive.h"
#include "config_validate_vpws/config_validate_vpws.h"

std::int32_t config_validate_vpn_name(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                      confd_value_t *newval) {
  return config_validate_vpws_group_name(sock, tctx, kp, newval);
}

// Only a rejection is passed on: a service port that merely draws a warning must not make the operator confirm.
std::int32_t config_validate_sp(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval) {
  const std::int32_t result = config_validate_vpws_service_port(sock, tctx, kp, newval);
  return result == CONFD_ERR ? CONFD_ERR : CONFD_OK;
}

// A mixed VPN is reported before a missing transparent-LAN-service. Warnings of either rule are dropped on purpose.
std::int32_t config_validate_vpn_access_interface_type(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                                       confd_value_t * /*newval*/) {
  validation_keepalive(tctx);
  if (config_validate_vpls_access_interface_type(sock, tctx, kp) == CONFD_ERR) return CONFD_ERR;
  if (config_validate_vpls_service_port_config(sock, tctx, kp) == CONFD_ERR) return CONFD_ERR;
  return CONFD_OK;
}
