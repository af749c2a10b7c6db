// The drivers of the pseudowire rules alone: which rules run in which order with what, and which answers end the call.

#include <gtest/gtest.h>

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/drivers/vpn_peer.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/drivers/scripted_rules.h"
#include "tests/support/pseudowires.h"

namespace {

// The maps that the rules got.
const val_pw_map_t *committing_map = nullptr;
const val_pw_map_t *running_map = nullptr;

const scripted::Pw vpws_pw{"north", "vpws", "10.0.0.1", 1};
const scripted::Pw vpls_pw{"north", "vpls", "10.0.0.1", 2};

// Adds one pseudowire, as a collector does. VPWS begins with an empty map, VPLS continues with the same.
void collect(val_pw_map_t &map, const scripted::Pw &pw, const val_pw_map_t *&seen, bool is_first) {
  if (is_first) seen = &map;
  EXPECT_EQ(&map, seen);
  EXPECT_EQ(map.empty(), is_first);
  map.emplace(std::pair(scripted::address_word(pw.peer.c_str()), pw.pw_id), scripted::record(pw));
}

}  // namespace

std::int32_t config_validate_pw_overflow(std::int32_t sock, confd_trans_ctx *tctx) {
  return scripted_rules.run("overflow", sock, tctx);
}

std::int32_t config_validate_vpws_unique_pw_id(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &committing) {
  collect(committing, vpws_pw, committing_map, true);
  return scripted_rules.run("VPWS unique", sock, tctx);
}

std::int32_t config_validate_vpls_unique_pw_id(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &committing) {
  collect(committing, vpls_pw, committing_map, false);
  return scripted_rules.run("VPLS unique", sock, tctx);
}

std::int32_t fill_config_vpws_peer_running(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &running) {
  collect(running, vpws_pw, running_map, true);
  return scripted_rules.run("VPWS running", sock, tctx);
}

std::int32_t fill_config_vpls_peer_running(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &running) {
  collect(running, vpls_pw, running_map, false);
  return scripted_rules.run("VPLS running", sock, tctx);
}

std::int32_t config_validate_vpws_pw_id_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                 const st_peer_info_t &pw) {
  EXPECT_EQ(&running, running_map);
  EXPECT_NE(&running, committing_map);
  return scripted_rules.run("VPWS exchange of " + pw.vpn_name, sock, tctx);
}

std::int32_t config_validate_vpls_pw_id_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                 const st_peer_info_t &pw) {
  EXPECT_EQ(&running, running_map);
  return scripted_rules.run("VPLS exchange of " + pw.vpn_name, sock, tctx);
}

namespace {

const Steps all_steps{"keep-alive",
                      "overflow",
                      "keep-alive",
                      "VPWS unique",
                      "keep-alive",
                      "VPLS unique",
                      "keep-alive",
                      "VPWS running",
                      "VPLS running",
                      "VPWS exchange of vpws",
                      "VPLS exchange of vpws",
                      "VPWS exchange of vpls",
                      "VPLS exchange of vpls"};

/// The steps up to and with the last.
Steps up_to(const std::string &last) {
  Steps expected;
  for (const std::string &one : all_steps) {
    expected.push_back(one);
    if (one == last) break;
  }
  return expected;
}

class PeerDriverTest : public DriverTest {
 protected:
  std::int32_t verdict() {
    scripted_rules.steps.clear();
    return config_validate_vpn_peer(platform.socket(), &platform.context(), nullptr, nullptr);
  }
};

TEST_F(PeerDriverTest, runs_every_rule_vpws_before_vpls_and_traces_at_the_end) {
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(scripted_rules.steps, all_steps);
  EXPECT_EQ(platform.calls(), (Steps{"qnmw_trace_register_category vpn-validation-debug", "zlog"}));
}

TEST_F(PeerDriverTest, only_a_rejection_ends_the_call) {
  for (const std::string &rule : all_steps) {
    if (rule == "keep-alive") continue;
    for (const std::int32_t answer : {-1, -3, -2, 1}) {
      SCOPED_TRACE(rule + " answers " + std::to_string(answer));
      platform.forget_calls();
      scripted_rules.answers = {{rule, answer}};
      EXPECT_EQ(verdict(), answer == -1 ? -1 : 0);
      EXPECT_EQ(scripted_rules.steps, answer == -1 ? up_to(rule) : all_steps);
      EXPECT_EQ(platform.count("zlog"), answer == -1 ? 0U : 1U);
    }
  }
}

TEST_F(PeerDriverTest, the_rules_set_the_messages) {
  for (const std::string &rule : all_steps) {
    scripted_rules.answers = {{rule, -1}};
    verdict();
  }
  EXPECT_EQ(platform.errors(), Steps{});
}

}  // namespace
