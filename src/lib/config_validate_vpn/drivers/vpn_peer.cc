#include "config_validate_vpn/drivers/vpn_peer.h"

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/validation_keepalive.h"
#include "config_validate_vpws/config_validate_vpws.h"

// VPWS fills the committing map before VPLS, so a pw-id that both use towards one neighbour is reported by VPLS. Only a
// rejection stops; no rule here warns, and the handler would not pass a warning on.
std::int32_t config_validate_vpn_peer(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t * /*kp*/,
                                      confd_value_t * /*newval*/) {
  validation_keepalive(tctx);
  if (config_validate_pw_overflow(sock, tctx) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  val_pw_map_t committing;
  if (config_validate_vpws_unique_pw_id(sock, tctx, committing) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  if (config_validate_vpls_unique_pw_id(sock, tctx, committing) == CONFD_ERR) return CONFD_ERR;

  validation_keepalive(tctx);
  if (config_validate_peer_exchange(sock, tctx, committing) == CONFD_ERR) return CONFD_ERR;

  return CONFD_OK;
}
