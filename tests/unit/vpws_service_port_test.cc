#include <gtest/gtest.h>

#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"

namespace {

using scripted::text;
using scripted::u32;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

constexpr const char *kVlanAction = "Service-port with VLAN action not allowed on a VPN";

std::string match_of(const std::string &port, const std::string &leaf) {
  return "/base:config/service-port{" + port + "}/match/vlan/vlan-id/" + leaf;
}

class VpwsServicePortTest : public scripted::PlatformTest {
 protected:
  std::int32_t verdict(const std::string &interface) { return verdict_on_key(text(interface)); }

  std::int32_t verdict_on_key(const scripted::Value &key) {
    scripted::KeyPath key_path({{key}, {scripted::tag(0x1342932d)}});
    return config_validate_vpws_service_port(platform.socket(), &platform.context(), key_path.get(), nullptr);
  }
};

TEST_F(VpwsServicePortTest, accepts_any_other_interface_unread) {
  for (const char *name : {"gigabit-ethernet-1/1/1", "service-1", "service_port-7", "Service-port-7", ""}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(verdict(name), 0);
  }
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(VpwsServicePortTest, accepts_a_service_port_without_a_vlan_action) {
  EXPECT_EQ(verdict("service-port-7"), 0);
  EXPECT_EQ(platform.calls(), (Calls{"maapi_exists " + match_of("7", "vid"), "maapi_exists " + match_of("7", "any")}));
  EXPECT_EQ(platform.errors(), Texts{});
}

TEST_F(VpwsServicePortTest, rejects_a_vlan_id_and_does_not_ask_for_any) {
  platform.leaf(match_of("7", "vid"), u32(100));
  EXPECT_EQ(verdict("service-port-7"), -1);
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_exists " + match_of("7", "vid"), std::string("confd_trans_seterr ") + kVlanAction}));
}

TEST_F(VpwsServicePortTest, rejects_any_vlan) {
  platform.leaf(match_of("7", "any"));
  EXPECT_EQ(verdict("service-port-7"), -1);
  EXPECT_EQ(platform.errors(), Texts{kVlanAction});
}

TEST_F(VpwsServicePortTest, another_service_ports_vlan_action_does_not_matter) {
  platform.leaf(match_of("8", "vid"), u32(100));
  platform.leaf(match_of("8", "any"));
  EXPECT_EQ(verdict("service-port-7"), 0);
}

TEST_F(VpwsServicePortTest, a_failed_read_rejects) {
  platform.fail("maapi_exists", 1);
  EXPECT_EQ(verdict("service-port-7"), -1);
  EXPECT_EQ(platform.error(), kVlanAction);
  EXPECT_EQ(platform.count("maapi_exists"), 1U);

  platform.forget_calls();
  platform.fail("maapi_exists", 2);
  EXPECT_EQ(verdict("service-port-7"), -1);
  EXPECT_EQ(platform.errors(), (Texts{kVlanAction, kVlanAction}));
}

struct NumberCase {
  const char *interface;
  const char *port;  ///< as it stands in the path
};

const std::vector<NumberCase> number_cases{
    {"service-port-12", "12"},
    {"service-port-012", "12"},
    {"service-port- 12", "12"},
    {"service-port-+12", "12"},
    {"service-port-12abc", "12"},
    {"service-port-12 abc", "12"},
    {"service-port-12.9", "12"},
    {"service-port-0x1F", "0"},
    {"service-port-0", "0"},
    {"service-port-7-", "7"},
    {"service-port-1-2-34", "34"},
    {"my-service-port-5", "5"},
    {"service-port-2147483647", "2147483647"},
    {"9-service-port --12", "12"},
};

TEST_F(VpwsServicePortTest, takes_the_number_after_the_last_hyphen_up_to_the_first_non_digit) {
  for (const NumberCase &row : number_cases) {
    SCOPED_TRACE(row.interface);
    platform.forget_calls();
    EXPECT_EQ(verdict(row.interface), 0);
    ASSERT_FALSE(platform.calls().empty());
    EXPECT_EQ(platform.calls()[0], "maapi_exists " + match_of(row.port, "vid"));
  }
}

TEST_F(VpwsServicePortTest, rejects_a_name_without_a_number_or_with_one_out_of_range) {
  for (const std::string name :
       {"service-port-abc", "service-port-99999999999", "service-port-2147483648", "service-port-", "service-port",
        "service-port--", "service-port- ", "service-port-7-x", "12-service-port"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(verdict(name), -1);
    EXPECT_EQ(platform.error(), name + " is not valid. Verify available service-port interfaces");
  }
  EXPECT_EQ(platform.count("maapi_exists"), 0U);
}

TEST_F(VpwsServicePortTest, a_key_of_another_type_stops_the_process) {
  EXPECT_BROKEN_MODEL(verdict_on_key(u32(7)), "config_validate_vpws", "(&kp->v[0][0])->type == C_BUF");
}

}  // namespace
