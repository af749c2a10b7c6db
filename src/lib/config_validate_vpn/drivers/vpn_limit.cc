#include "config_validate_vpn/drivers/vpn_num_instances.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/platform_limits.h"

// - The VPNs of both families together must not be more than the card allows.
// - The comparison is signed, so a limit that was never read (-1) refuses every sum of 0 and above. The message then
//   shows -1 as the allowed number: a card that does not tell its limit gets no VPN past this rule.
// - A failed count is added as the -1 it is. Two failed counts make -2, which is not above an unread limit.
std::int32_t config_validate_vpn_overflow(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t * /*kp*/,
                                          confd_value_t * /*newval*/) {
  const std::int32_t vpls = get_vpn_num_instances(sock, tctx, vpn_app::Vpls);
  const std::int32_t vpws = get_vpn_num_instances(sock, tctx, vpn_app::Vpws);
  const std::int32_t configured = vpls + vpws;
  const auto allowed = static_cast<std::int32_t>(platform_limits.vpn_max);
  if (configured > allowed) {
    confd_trans_seterr(tctx, "Maximum number of VPNs has been exceeded. Attempt to configure %d of %d allowed",
                       configured, allowed);
    return CONFD_ERR;
  }
  return CONFD_OK;
}
