#include "config_validate_vpn/entry_points.h"

#include <algorithm>
#include <cstdio>

#include "config_validate_vpn/shared/platform_limits.h"
#include "config_validate_vpn/validation_points.h"
#include "qnconfd.h"

std::int32_t lib_init(void **state) {
  *state = nullptr;
  set_vpn_max_limit();
  set_vpls_max_ac_itf_limit();
  return 0;
}

// A negative length is no room: nothing may be written.
std::int32_t get_validation_point(char *name, std::int32_t length) {
  const auto room = static_cast<std::size_t>(std::max(length, 0));
  std::snprintf(name, room, "%s", "vpn_app_validation");
  return 0;
}

// The socket is asked for before the name is looked up, also for a name that no row has.
std::int32_t validate(confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval) {
  const std::int32_t sock = qnconfd_maapi_socket_get(tctx->vcb_opaque);

  const validation_handler_t handler = find_validation_handler(tctx->validate_opaque);
  if (handler == nullptr) return CONFD_OK;

  tctx->v_opaque = nullptr;
  return handler(sock, tctx, kp, newval);
}

std::int32_t lib_finish(void **state) { return *state == nullptr ? 0 : -1; }
