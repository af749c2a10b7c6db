// A validation library with one fixed answer for each point, so that every kind of verdict can be had from any commit.

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "confd_dp.h"
#include "confd_lib.h"
#include "qnmw_trace.h"
#include "tests/support/plugin_entry_points.h"

namespace {

bool is_point(const confd_trans_ctx &context, const char *name) {
  return std::strcmp(context.validate_opaque, name) == 0;
}

void write_trace() {
  zlog(qnmw_trace_register_category("answers"), "answers.cc", 10, "validate", 8, 1, 12, "%s",
       "first line\nsecond line");
}

/// As a library does that finds its data model broken.
[[noreturn]] void stop() {
  std::fputs("answers.cc:1: validate: Assertion `data model' failed.\n", stderr);
  std::abort();
}

}  // namespace

extern "C" int validate(confd_trans_ctx *context, confd_hkeypath_t * /*path*/, confd_value_t * /*value*/) {
  if (is_point(*context, "vpn_name_valp")) {
    confd_trans_seterr(context, "this name is hard to read");
    return CONFD_VALIDATION_WARN;
  }
  if (is_point(*context, "vpn_peer_valp")) {
    confd_trans_seterr(context, "this neighbour is not wanted");
    return CONFD_ERR;
  }
  if (is_point(*context, "vlm_memb_valp")) write_trace();
  if (is_point(*context, "vpn_access_intf_valp")) stop();
  constexpr int no_answer_of_the_contract = 7;
  return is_point(*context, "vpn_sp_valp") ? no_answer_of_the_contract : CONFD_OK;
}
