// The driver of the access rules alone: which rules run in which order with what, and which answers end the call.

#include <gtest/gtest.h>

#include <unordered_map>

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/platform_limits.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/drivers/scripted_rules.h"

platform_limits_t platform_limits;

namespace {

// What the rules got.
const st_val_acc_dot1q_vpn_t *shared_snapshot = nullptr;
const std::unordered_map<std::string, bool> *shared_service_ports = nullptr;
std::int32_t given_maximum = 0;

std::int32_t step(const char *name, std::int32_t sock, const confd_trans_ctx *tctx,
                  const st_val_acc_dot1q_vpn_t &snapshot) {
  if (shared_snapshot == nullptr) shared_snapshot = &snapshot;
  EXPECT_EQ(&snapshot, shared_snapshot) << "one snapshot for all rules";
  return scripted_rules.run(name, sock, tctx);
}

}  // namespace

std::int32_t config_validate_vpws_access_dot1q(std::int32_t sock, confd_trans_ctx *tctx,
                                               st_val_acc_dot1q_vpn_t &snapshot,
                                               std::unordered_map<std::string, bool> &service_ports) {
  EXPECT_TRUE(snapshot.intf_map.empty() && snapshot.mop_map.empty() && snapshot.tls_map.empty());
  EXPECT_TRUE(service_ports.empty());
  snapshot.tls_map[{"seen by", "VPWS"}] = true;
  service_ports["seen by VPWS"] = true;
  shared_service_ports = &service_ports;
  return step("VPWS", sock, tctx, snapshot);
}

std::int32_t config_validate_vpls_access_dot1q(std::int32_t sock, confd_trans_ctx *tctx,
                                               st_val_acc_dot1q_vpn_t &snapshot, std::int32_t maximum,
                                               std::unordered_map<std::string, bool> &service_ports) {
  EXPECT_EQ(&service_ports, shared_service_ports) << "one register for both families";
  given_maximum = maximum;
  return step("VPLS", sock, tctx, snapshot);
}

std::int32_t config_validate_select_encap_limit(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  return step("encapsulation limit", sock, tctx, snapshot);
}

std::int32_t config_validate_vpn_access_vlm_port_based(int sock, confd_trans_ctx *tctx,
                                                       st_val_acc_dot1q_vpn_t &snapshot) {
  return step("VLAN manager", sock, tctx, snapshot);
}

std::int32_t config_validate_vpn_access_sp_bd_mtu(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  return step("bridge MTU", sock, tctx, snapshot);
}

std::int32_t config_validate_vpn_access_uplink(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  return step("uplink", sock, tctx, snapshot);
}

std::int32_t config_validate_vpn_access_tls(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  return step("transparent LAN service", sock, tctx, snapshot);
}

namespace {

class AccessDriverTest : public DriverTest {
 protected:
  std::int32_t verdict() {
    scripted_rules.steps.clear();
    shared_snapshot = nullptr;
    return config_validate_vpn_access(platform.socket(), &platform.context(), nullptr, nullptr);
  }

  void TearDown() override {
    EXPECT_EQ(platform.calls(), Steps{}) << "the driver itself asks the platform nothing";
    DriverTest::TearDown();
  }

  // The rules in their order, each after a keep-alive, up to and with the last.
  static Steps up_to(const std::string &last) {
    Steps expected;
    for (const std::string rule :
         {"VPWS", "VPLS", "encapsulation limit", "VLAN manager", "bridge MTU", "uplink", "transparent LAN service"}) {
      expected.insert(expected.end(), {"keep-alive", rule});
      if (rule == last) break;
    }
    return expected;
  }
};

TEST_F(AccessDriverTest, runs_every_rule_after_a_keep_alive) {
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(scripted_rules.steps, up_to("transparent LAN service"));
}

TEST_F(AccessDriverTest, each_call_begins_anew) {
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(verdict(), 0);
}

struct AnswerCase {
  const char *rule;
  std::int32_t answer;
  std::int32_t verdict;
  const char *last;  ///< the rule that ran last
};

TEST_F(AccessDriverTest, the_first_five_reject_and_the_last_two_warn) {
  const char *end = "transparent LAN service";
  for (const char *rule : {"VPWS", "VPLS", "encapsulation limit", "VLAN manager", "bridge MTU"}) {
    for (const AnswerCase &row : {AnswerCase{rule, -1, -1, rule}, {rule, -3, 0, end}, {rule, 1, 0, end}}) {
      SCOPED_TRACE(std::string(rule) + " answers " + std::to_string(row.answer));
      scripted_rules.answers = {{rule, row.answer}};
      EXPECT_EQ(verdict(), row.verdict);
      EXPECT_EQ(scripted_rules.steps, up_to(row.last));
    }
  }
  for (const char *rule : {"uplink", end}) {
    for (const AnswerCase &row : {AnswerCase{rule, -3, -3, rule}, {rule, -1, 0, end}, {rule, 1, 0, end}}) {
      SCOPED_TRACE(std::string(rule) + " answers " + std::to_string(row.answer));
      scripted_rules.answers = {{rule, row.answer}};
      EXPECT_EQ(verdict(), row.verdict);
      EXPECT_EQ(scripted_rules.steps, up_to(row.last));
    }
  }
}

TEST_F(AccessDriverTest, a_dropped_answer_does_not_hide_a_later_one) {
  scripted_rules.answers = {{"encapsulation limit", -3}, {"bridge MTU", -1}};
  EXPECT_EQ(verdict(), -1);
  scripted_rules.answers = {{"uplink", -1}, {"transparent LAN service", -3}};
  EXPECT_EQ(verdict(), -3);
}

TEST_F(AccessDriverTest, the_maximum_is_the_limit_as_a_signed_number) {
  for (const auto &[limit, maximum] : std::map<std::uint32_t, std::int32_t>{{0, 0}, {64, 64}, {kLimitNotRead, -1}}) {
    platform_limits.vpls_max_ac_itf = limit;
    verdict();
    EXPECT_EQ(given_maximum, maximum);
  }
}

}  // namespace
