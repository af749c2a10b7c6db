// The entry point over handlers that only tell what reached them.

#include <gtest/gtest.h>

#include <tuple>

#include "config_validate_vpn/entry_points.h"
#include "config_validate_vpn/handlers.h"
#include "tests/support/printers.h"

namespace {

using Arguments = std::tuple<std::string, std::int32_t, confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *>;

std::int32_t answer = 0;
Arguments reached;

std::int32_t tell(const char *handler, std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                  confd_value_t *newval) {
  reached = {handler, sock, tctx, kp, newval};
  return answer;
}

}  // namespace

std::int32_t config_validate_vpn_overflow(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                          confd_value_t *newval) {
  return tell("overflow", sock, tctx, kp, newval);
}

std::int32_t config_validate_vpn_access(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                        confd_value_t *newval) {
  return tell("access", sock, tctx, kp, newval);
}

std::int32_t config_validate_vpn_peer(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                      confd_value_t *newval) {
  return tell("peer", sock, tctx, kp, newval);
}

std::int32_t config_validate_vlm(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                 confd_value_t *newval) {
  return tell("vlan membership", sock, tctx, kp, newval);
}

namespace {

class ValidateForwardingTest : public scripted::PlatformTest {};

TEST_F(ValidateForwardingTest, hands_everything_to_the_handler_and_its_answer_back) {
  confd_hkeypath_t path{};
  confd_value_t value{};
  confd_trans_ctx *const context = &platform.context();
  for (const auto &[point, handler] :
       std::vector<std::pair<const char *, const char *>>{{"vpn_overflow_valp", "overflow"},
                                                          {"vpn_access_valp", "access"},
                                                          {"vpn_peer_valp", "peer"},
                                                          {"vlm_memb_valp", "vlan membership"}}) {
    platform.set_point(point);
    for (answer = -3; answer <= 1; ++answer) {
      reached = {};
      EXPECT_EQ(validate(context, &path, &value), answer);
      EXPECT_EQ(reached, Arguments(handler, platform.socket(), context, &path, &value));
    }
    EXPECT_EQ(validate(context, nullptr, nullptr), answer);
    EXPECT_EQ(reached, Arguments(handler, platform.socket(), context, nullptr, nullptr)) << "also where there is none";
  }
}

}  // namespace
