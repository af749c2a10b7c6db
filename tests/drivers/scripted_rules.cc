#include "tests/drivers/scripted_rules.h"

#include "config_validate_vpn/shared/validation_keepalive.h"

std::int32_t ScriptedRules::run(const std::string &rule, std::int32_t sock, const confd_trans_ctx *tctx) {
  steps.push_back(rule);
  EXPECT_EQ(sock, scripted::Platform::active().socket());
  EXPECT_EQ(tctx, &scripted::Platform::active().context());
  return answers[rule];
}

std::int32_t validation_keepalive(confd_trans_ctx *tctx) {
  scripted_rules.steps.emplace_back("keep-alive");
  EXPECT_EQ(tctx, &scripted::Platform::active().context());
  return -1;
}
