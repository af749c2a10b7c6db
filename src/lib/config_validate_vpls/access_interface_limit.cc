#include "confd_maapi.h"
#include "config_validate_vpls/config_validate_vpls.h"

// The comparison is signed, so a maximum that was never read (-1) is exceeded by every count but a failed one, which is
// -1 itself. The path has the id as a signed number, so that the VPN of an id from 2^31 on is not found and counts as
// within the limit.
bool config_validate_vpls_max_access_interfaces(std::int32_t sock, confd_trans_ctx *tctx, const char *group,
                                                const char *vpn, std::uint32_t vpn_id, std::int32_t maximum) {
  const std::int32_t count = maapi_num_instances(
      sock, tctx->thandle, "/internal/int-vpls-group{%s}/int-vpls-vpn{%s %d}/int-vpls-bd/int-vpls-ac", group, vpn,
      static_cast<std::int32_t>(vpn_id));
  if (count <= maximum) return false;

  confd_trans_seterr(tctx,
                     "Maximum number of access-interfaces has been exceeded. Attempt to configure %d of %d allowed",
                     count, maximum);
  return true;
}
