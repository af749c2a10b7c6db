#include "config_validate_comn/rules/service_port_bridge_mtu.h"

#include "config_validate_comn/config_validate_comn.h"
#include "tests/support/rule_message.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::i32;
using scripted::text;
using scripted::u32;

constexpr const char *kRejected =
    "vpls-group north vpn red access-interface service-port-1 : VPLS VPN assigned to a service-port must have its bridge MTU lesser or equal than 2000.";

class ServicePortBridgeMtuTest : public AccessTest {
 protected:
  ServicePortBridgeMtuTest() { add_vpn("north", "red", 3); }

  void add_vpn(const std::string &group, const std::string &vpn, std::uint32_t id) {
    platform.entry("/internal/int-vpls-group{" + group + "}/int-vpls-vpn", {text(vpn), u32(id)}, 2);
  }
  void set_mtu(scripted::Value mtu) { platform.leaf(kMtu, std::move(mtu)); }

  std::int32_t verdict() { return config_validate_vpn_access_sp_bd_mtu(sock(), tctx(), snapshot); }

  static constexpr const char *kMtu = "/internal/int-vpls-group{north}/int-vpls-vpn{red 3}/int-vpls-bd/int-vpls-bd-mtu";
};

TEST_F(ServicePortBridgeMtuTest, the_path_holds_the_vpns_identifier) {
  EXPECT_EQ(build_low_level_vpls_vpn_bd_mtu_path(sock(), tctx(), "vpls-group north", "vpn red"), kMtu);
  EXPECT_EQ(build_low_level_vpls_vpn_bd_mtu_path(sock(), tctx(), "vpls-group north", "vpn blue"),
            "/internal/int-vpls-group{north}/int-vpls-vpn{blue 0}/int-vpls-bd/int-vpls-bd-mtu");
}

TEST_F(ServicePortBridgeMtuTest, an_identifier_from_two_to_the_31_on_is_written_without_sign) {
  add_vpn("north", "yellow", 0xFFFFFFFF);
  EXPECT_EQ(build_low_level_vpls_vpn_bd_mtu_path(sock(), tctx(), "vpls-group north", "vpn yellow"),
            "/internal/int-vpls-group{north}/int-vpls-vpn{yellow 4294967295}/int-vpls-bd/int-vpls-bd-mtu");
}

TEST_F(ServicePortBridgeMtuTest, the_path_is_cut_at_511_characters) {
  const std::string group(600, 'g');
  EXPECT_EQ(build_low_level_vpls_vpn_bd_mtu_path(sock(), tctx(), "vpls-group " + group, "vpn red"),
            ("/internal/int-vpls-group{" + group).substr(0, 511));
}

TEST_F(ServicePortBridgeMtuTest, an_mtu_of_2000_passes) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  set_mtu(u32(2000));
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
  const std::string vpns = "/internal/int-vpls-group{north}/int-vpls-vpn";
  EXPECT_EQ(platform.calls(), (Calls{"maapi_init_cursor " + vpns, "maapi_find_next " + vpns + " after {red 0}",
                                     "maapi_destroy_cursor " + vpns, std::string("maapi_get_elem ") + kMtu}));
}

TEST_F(ServicePortBridgeMtuTest, an_mtu_of_2001_is_refused) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  set_mtu(u32(2001));
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{kRejected});
}

TEST_F(ServicePortBridgeMtuTest, a_missing_mtu_is_refused) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.error(), kRejected);
}

TEST_F(ServicePortBridgeMtuTest, any_other_failed_read_passes) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  fail_only("maapi_get_elem", 1);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

TEST_F(ServicePortBridgeMtuTest, a_vpn_that_a_failed_read_let_pass_is_not_read_again) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  record_change("vpls-group north", "vpn red", "service-port-2");
  fail_only("maapi_get_elem", 1);
  EXPECT_EQ(verdict(), 0) << "the second port would find the MTU missing";
  EXPECT_EQ(platform.count("maapi_get_elem"), 1U);
}

TEST_F(ServicePortBridgeMtuTest, a_failed_look_up_of_the_identifier_reads_under_zero) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  set_mtu(u32(1500));
  for (const char *function : {"maapi_init_cursor", "maapi_find_next"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict(), -1) << "there is no MTU under identifier 0";
  }
}

struct InterfaceCase {
  const char *group;
  const char *interface;
  bool is_examined;
};

void PrintTo(const InterfaceCase &row, std::ostream *out) { *out << row.group << ' ' << row.interface; }

class ServicePortBridgeMtuTableTest : public ServicePortBridgeMtuTest,
                                      public ::testing::WithParamInterface<InterfaceCase> {};

TEST_P(ServicePortBridgeMtuTableTest, examines_service_ports_of_vpls_vpns) {
  record_change(GetParam().group, "vpn red", GetParam().interface);
  EXPECT_EQ(verdict(), GetParam().is_examined ? -1 : 0);
  EXPECT_EQ(platform.count("maapi_get_elem"), GetParam().is_examined ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(Rows, ServicePortBridgeMtuTableTest,
                         ::testing::Values(InterfaceCase{"vpls-group north", "service-port-1", true},
                                           InterfaceCase{"vpls-group north", "service-port", true},
                                           InterfaceCase{"vpls-group north", "service-por", false},
                                           InterfaceCase{"vpls-group north", "my-service-port-1", false},
                                           InterfaceCase{"vpls-group north", "eth-1", false},
                                           InterfaceCase{"vpws-group north", "service-port-1", false},
                                           InterfaceCase{"vpws-group vpls-group", "service-port-1", false}));

TEST_F(ServicePortBridgeMtuTest, only_changed_attachments_are_examined) {
  record_port_based("vpls-group north", "vpn red", "service-port-1");
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(ServicePortBridgeMtuTest, the_mtu_of_a_vpn_is_read_once) {
  record_change("vpls-group north", "vpn red", "eth-1");
  record_change("vpls-group north", "vpn red", "service-port-1");
  record_change("vpls-group north", "vpn red", "service-port-2");
  set_mtu(u32(1500));
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.count("maapi_get_elem"), 1U);
}

TEST_F(ServicePortBridgeMtuTest, the_first_vpn_in_order_is_named) {
  add_vpn("north", "blue", 4);
  record_change("vpls-group north", "vpn red", "service-port-1");
  record_change("vpls-group north", "vpn blue", "service-port-2");
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.error(),
            message_of("service-port-bridge-mtu", {"vpls-group north vpn blue", "service-port-2", "2000"}));
}

TEST_F(ServicePortBridgeMtuTest, a_vpn_after_an_accepted_one_is_examined) {
  add_vpn("north", "yellow", 4);
  record_change("vpls-group north", "vpn red", "service-port-1");
  record_change("vpls-group north", "vpn yellow", "service-port-1");
  set_mtu(u32(1500));
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.error(),
            message_of("service-port-bridge-mtu", {"vpls-group north vpn yellow", "service-port-1", "2000"}));
}

TEST_F(ServicePortBridgeMtuTest, the_mtu_is_a_number_without_sign) {
  record_change("vpls-group north", "vpn red", "service-port-1");
  set_mtu(i32(1500));
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&v)->type == C_UINT32");
}

}  // namespace
