// A validation library that never answers.

#include <unistd.h>

#include "confd_dp.h"
#include "confd_lib.h"
#include "tests/support/plugin_entry_points.h"

extern "C" int validate(confd_trans_ctx * /*context*/, confd_hkeypath_t * /*path*/, confd_value_t * /*value*/) {
  for (;;) pause();
}
