// A plug-in that accepts everything, less what the build's one FAULT_ definition spoils; without any it is right.

#include <cstdint>
#include <cstdio>

#include "confd_dp.h"
#include "confd_maapi.h"
#include "qnconfd.h"

extern "C" {

std::int32_t lib_init(void **state);
std::int32_t get_validation_point(char *name, std::int32_t length);
std::int32_t validate(confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval);
std::int32_t lib_finish(void **state);

#if defined(FAULT_UNRESOLVED_SYMBOL)
int no_such_platform_function(void);
#endif

#if !defined(FAULT_WITHOUT_LIB_INIT)
std::int32_t lib_init(void **state) {
  *state = nullptr;
#if defined(FAULT_LIB_INIT_FAILS)
  return -1;
#else
  return 0;
#endif
}
#endif

#if !defined(FAULT_WITHOUT_GET_VALIDATION_POINT)
std::int32_t get_validation_point(char *name, std::int32_t length) {
#if defined(FAULT_OTHER_POINT_NAME)
  const char *own_name = "vpn_other_validation";
#else
  const char *own_name = "vpn_app_validation";
#endif
  std::snprintf(name, static_cast<std::size_t>(length), "%s", own_name);
  return 0;
}
#endif

#if !defined(FAULT_WITHOUT_VALIDATE)
std::int32_t validate([[maybe_unused]] confd_trans_ctx *tctx, confd_hkeypath_t *, confd_value_t *) {
#if defined(FAULT_UNRESOLVED_SYMBOL)
  return no_such_platform_function();
#elif defined(FAULT_UNKNOWN_ANSWER)
  return 7;
#elif defined(FAULT_LEAKS_CURSOR)
  static maapi_cursor mc{};
  return maapi_init_cursor(qnconfd_maapi_socket_get(tctx->vcb_opaque), tctx->thandle, &mc, "/internal/int-vpws-group");
#else
  return 0;
#endif
}
#endif

#if !defined(FAULT_WITHOUT_LIB_FINISH)
std::int32_t lib_finish(void **) { return 0; }
#endif
}
