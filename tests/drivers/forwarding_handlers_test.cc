// The forwarding handlers alone, over rules that answer what a test wants.

#include <gtest/gtest.h>

#include <tuple>

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/printers.h"

namespace {

using Calls = std::vector<std::string>;
using Arguments = std::tuple<std::int32_t, confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *>;

// What the rules answer, and what reached them.
std::int32_t name_answer = 0;
std::int32_t service_port_answer = 0;
std::int32_t interface_type_answer = 0;
std::int32_t service_port_config_answer = 0;
Calls rules_called;
Arguments arguments;

}  // namespace

std::int32_t config_validate_vpws_group_name(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                             confd_value_t *newval) {
  rules_called.push_back("group name");
  arguments = {sock, tctx, kp, newval};
  return name_answer;
}

std::int32_t config_validate_vpws_service_port(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                               confd_value_t *newval) {
  rules_called.push_back("service port");
  arguments = {sock, tctx, kp, newval};
  return service_port_answer;
}

std::int32_t config_validate_vpls_access_interface_type(std::int32_t sock, confd_trans_ctx *tctx,
                                                        confd_hkeypath_t *kp) {
  rules_called.push_back("interface type");
  arguments = {sock, tctx, kp, nullptr};
  return interface_type_answer;
}

std::int32_t config_validate_vpls_service_port_config(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp) {
  rules_called.push_back("service port configuration");
  arguments = {sock, tctx, kp, nullptr};
  return service_port_config_answer;
}

namespace {

class ForwardingTest : public scripted::PlatformTest {
 protected:
  ForwardingTest() { rules_called.clear(); }

  std::int32_t ask(validation_handler_t handler) {
    rules_called.clear();
    return handler(platform.socket(), &platform.context(), &path, &value);
  }

  Arguments given() { return {platform.socket(), &platform.context(), &path, &value}; }
  Arguments given_without_value() { return {platform.socket(), &platform.context(), &path, nullptr}; }

  confd_hkeypath_t path{};
  confd_value_t value{};
};

TEST_F(ForwardingTest, name_handler_answers_what_the_rule_answers) {
  for (const std::int32_t answer : {0, -1, -3}) {
    name_answer = answer;
    EXPECT_EQ(ask(config_validate_vpn_name), answer);
    EXPECT_EQ(rules_called, Calls{"group name"});
    EXPECT_EQ(arguments, given());
  }
}

TEST_F(ForwardingTest, service_port_handler_passes_only_a_rejection) {
  for (const auto &[rule, handler] : std::vector<std::pair<int, int>>{{0, 0}, {-1, -1}, {-3, 0}, {-2, 0}, {1, 0}}) {
    service_port_answer = rule;
    EXPECT_EQ(ask(config_validate_sp), handler) << "rule answers " << rule;
    EXPECT_EQ(rules_called, Calls{"service port"});
    EXPECT_EQ(arguments, given());
  }
}

struct InterfaceTypeCase {
  std::int32_t interface_type;
  std::int32_t service_port_config;
  std::int32_t answer;
  Calls rules;
};

TEST_F(ForwardingTest, interface_type_handler_stops_at_the_first_rejection_and_drops_warnings) {
  const Calls first{"interface type"};
  const Calls both{"interface type", "service port configuration"};
  const std::vector<InterfaceTypeCase> cases{
      {0, 0, 0, both},  {-1, 0, -1, first}, {-1, -1, -1, first}, {0, -1, -1, both},
      {-3, 0, 0, both}, {0, -3, 0, both},   {-3, -3, 0, both},   {-3, -1, -1, both},
  };
  for (const InterfaceTypeCase &row : cases) {
    SCOPED_TRACE(std::to_string(row.interface_type) + " then " + std::to_string(row.service_port_config));
    interface_type_answer = row.interface_type;
    service_port_config_answer = row.service_port_config;
    EXPECT_EQ(ask(config_validate_vpn_access_interface_type), row.answer);
    EXPECT_EQ(rules_called, row.rules);
    EXPECT_EQ(arguments, given_without_value());
  }
}

}  // namespace
