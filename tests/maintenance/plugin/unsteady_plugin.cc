// A validation library that never answers two processes alike.

#include <unistd.h>

#include <cstdio>

#include "confd_dp.h"
#include "confd_lib.h"

extern "C" {

int lib_init(void **state) {
  *state = nullptr;
  return 0;
}

int get_validation_point(char *buffer, int length) {
  std::snprintf(buffer, static_cast<std::size_t>(length), "vpn_app_validation");
  return 0;
}

int validate(confd_trans_ctx *context, confd_hkeypath_t * /*path*/, confd_value_t * /*value*/) {
  confd_trans_seterr(context, "process %d does not like it", static_cast<int>(getpid()));
  return CONFD_VALIDATION_WARN;
}

int lib_finish(void ** /*state*/) { return 0; }
}
