#include "config_validate_comn/config_validate_comn.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::enum_value;
using scripted::text;
using scripted::u32;

constexpr const char *kVpns = "/internal/int-vpls-group{north}/int-vpls-vpn";
constexpr const char *kBridgeDomain = "/internal/int-vpls-group{north}/int-vpls-vpn{red 3}/int-vpls-bd";
constexpr const char *kAccessList = "/internal/int-vpls-group{north}/int-vpls-vpn{red 3}/int-vpls-bd/int-vpls-ac";
constexpr const char *kTlsSwitch =
    "/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain/transparent-lan-service";

class TransparentLanServiceTest : public AccessTest {
 protected:
  std::int32_t verdict() { return config_validate_vpn_access_tls(sock(), tctx(), snapshot); }
};

// VPN red is a changed port-based VPLS with transparent-LAN-service on eth-1.
class PortBasedServiceTest : public TransparentLanServiceTest {
 protected:
  PortBasedServiceTest() {
    platform.list(kVpns, 2, {{text("red"), u32(3)}});
    platform.list(kAccessList, 1);
    set_vpls_tls("vpls-group north", "vpn red", 1, snapshot);
  }

  void attach(const std::string &interface) {
    record_port_based("vpls-group north", "vpn red", interface);
    record_change("vpls-group north", "vpn red", interface);
  }
  void list(const std::vector<std::string> &interfaces) {
    for (const std::string &interface : interfaces) platform.entry(kAccessList, {text(interface)});
  }
  void change_service() { platform.change(kTlsSwitch, MOP_CREATED); }
  void change_entry(const std::string &interface) {
    platform.change(std::string(kAccessList) + "{" + interface + "}", MOP_CREATED);
  }

  static std::string warning(const std::string &interfaces) {
    return "All VPLS assigned to interface " + interfaces +
           " will run as TLS since vpls-group north vpn-name red has port based TLS behavior";
  }
};

TEST_F(PortBasedServiceTest, with_one_interface_the_changed_service_names_it) {
  attach("eth-1");
  list({"eth-1"});
  change_service();
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{warning("eth-1")});
}

TEST_F(PortBasedServiceTest, with_one_interface_the_changed_vlan_names_it) {
  attach("eth-1");
  list({"eth-1"});
  platform.change(std::string(kBridgeDomain) + "/int-vpls-bd-vlan", MOP_VALUE_SET, u32(0));
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), warning("eth-1"));
}

TEST_F(PortBasedServiceTest, with_one_interface_its_own_change_names_it) {
  attach("eth-1");
  list({"eth-1"});
  change_entry("eth-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), warning("eth-1"));
}

TEST_F(PortBasedServiceTest, with_one_interface_that_did_not_change_there_is_no_warning) {
  attach("eth-1");
  list({"eth-1"});
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

TEST_F(PortBasedServiceTest, with_one_entry_the_interface_that_led_here_is_asked_for) {
  attach("eth-1");
  list({"eth-2"});
  change_entry("eth-2");
  EXPECT_EQ(verdict(), 0) << "eth-1's entry did not change";
  change_entry("eth-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), warning("eth-1"));
}

TEST_F(PortBasedServiceTest, a_changed_service_names_every_interface) {
  attach("eth-1");
  list({"eth-2", "service-port-1", "eth-1"});
  change_service();
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{warning("eth-1 eth-2 service-port-1")});
}

TEST_F(PortBasedServiceTest, changed_interfaces_are_named) {
  attach("eth-1");
  list({"eth-1", "eth-2", "eth-3", "service-port-1"});
  change_entry("eth-2");
  change_entry("service-port-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{warning("eth-2 service-port-1")});
}

TEST_F(PortBasedServiceTest, without_a_changed_interface_there_is_no_warning) {
  attach("eth-1");
  list({"eth-1", "eth-2"});
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

TEST_F(PortBasedServiceTest, an_empty_list_names_nothing) {
  attach("eth-1");
  change_service();
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

TEST_F(PortBasedServiceTest, a_service_port_that_led_here_names_nothing) {
  attach("service-port-1");
  list({"service-port-1"});
  change_entry("service-port-1");
  EXPECT_EQ(verdict(), 0) << "one entry, its own change";
  list({"eth-1"});
  change_entry("eth-1");
  EXPECT_EQ(verdict(), 0) << "two entries, their own change";
  change_service();
  EXPECT_EQ(verdict(), 0) << "two entries, changed service";
  platform.list(kAccessList, 1, {{text("service-port-1")}});
  EXPECT_EQ(verdict(), 0) << "one entry, changed service";
  EXPECT_EQ(platform.error(), "");
}

TEST_F(PortBasedServiceTest, a_service_ports_entries_are_not_probed) {
  attach("service-port-1");
  list({"service-port-1", "eth-1"});
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(calls_of({"maapi_keypath_diff_iterate"}),
            (Calls{std::string("maapi_keypath_diff_iterate ") + kTlsSwitch,
                   std::string("maapi_keypath_diff_iterate ") + kBridgeDomain + "/int-vpls-bd-vlan"}));
  EXPECT_EQ(platform.count("maapi_get_next"), 3U) << "the list is walked nevertheless";
}

TEST_F(PortBasedServiceTest, a_service_ports_name_begins_with_the_word_and_a_dash) {
  attach("service-port");
  list({"service-port"});
  change_service();
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), warning("service-port"));
}

TEST_F(PortBasedServiceTest, the_first_16_entries_are_named) {
  attach("eth-1");
  std::string first16;
  for (int i = 10; i < 30; ++i) {
    const std::string interface = "if-" + std::to_string(i);
    list({interface});
    if (i < 26) first16 += (first16.empty() ? "" : " ") + interface;
  }
  change_service();
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), warning(first16));
  EXPECT_EQ(platform.count("maapi_get_next"), 17U);
}

TEST_F(PortBasedServiceTest, all_16_entries_of_a_long_list_are_looked_at_named_or_not) {
  attach("eth-1");
  for (int i = 10; i < 27; ++i) list({"if-" + std::to_string(i)});
  change_entry("if-26");
  EXPECT_EQ(verdict(), 0) << "the 17th";
  change_entry("if-25");
  EXPECT_EQ(verdict(), -3) << "the 16th";
  EXPECT_EQ(platform.error(), warning("if-25"));
}

TEST_F(PortBasedServiceTest, ends_the_walk_also_without_a_warning) {
  attach("eth-1");
  list({"eth-1"});
  record_port_based("vpws-group west", "vpn blue", "eth-2");
  record_vlan("vpls-group north", "vpn green", "eth-2", 10);
  record_change("vpws-group west", "vpn blue", "eth-2");
  EXPECT_EQ(verdict(), 0);
  change_entry("eth-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), warning("eth-1"));
}

TEST_F(PortBasedServiceTest, comes_before_the_warning_of_a_shared_port) {
  record_port_based("vpws-group west", "vpn blue", "eth-1");
  record_vlan("vpls-group north", "vpn green", "eth-1", 10);
  record_change("vpws-group west", "vpn blue", "eth-1");
  attach("eth-1");
  list({"eth-1"});
  EXPECT_EQ(verdict(), 0);
}

TEST_F(PortBasedServiceTest, leaves_the_walk_alone_when_the_service_is_off) {
  record_port_based("vpls-group north", "vpn green", "eth-1");
  record_change("vpls-group north", "vpn green", "eth-1");
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(PortBasedServiceTest, leaves_the_walk_alone_when_the_vpn_is_unchanged_or_vlan_based) {
  record_port_based("vpls-group north", "vpn red", "eth-1");
  record_vlan("vpls-group north", "vpn red", "eth-2", 10);
  record_change("vpls-group north", "vpn red", "eth-2");
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(PortBasedServiceTest, asks_in_this_order) {
  attach("eth-1");
  list({"eth-1", "eth-2"});
  EXPECT_EQ(verdict(), 0);
  const std::string list = kAccessList;
  EXPECT_EQ(
      platform.calls(),
      (Calls{std::string("maapi_keypath_diff_iterate ") + kTlsSwitch, std::string("maapi_init_cursor ") + kVpns,
             std::string("maapi_find_next ") + kVpns + " after {red 0}", std::string("maapi_destroy_cursor ") + kVpns,
             std::string("maapi_keypath_diff_iterate ") + kBridgeDomain + "/int-vpls-bd-vlan",
             "maapi_num_instances " + list, "maapi_init_cursor " + list, "maapi_get_next " + list,
             "maapi_keypath_diff_iterate " + list + "{eth-1}", "maapi_get_next " + list,
             "maapi_keypath_diff_iterate " + list + "{eth-2}", "maapi_get_next " + list,
             "maapi_destroy_cursor " + list}));
}

TEST_F(PortBasedServiceTest, with_a_changed_service_asks_for_the_vlan_all_the_same_and_for_no_entry) {
  attach("eth-1");
  list({"eth-1", "eth-2"});
  change_service();
  EXPECT_EQ(verdict(), -3);
  const std::string list = kAccessList;
  EXPECT_EQ(
      platform.calls(),
      (Calls{std::string("maapi_keypath_diff_iterate ") + kTlsSwitch, std::string("maapi_init_cursor ") + kVpns,
             std::string("maapi_find_next ") + kVpns + " after {red 0}", std::string("maapi_destroy_cursor ") + kVpns,
             std::string("maapi_keypath_diff_iterate ") + kBridgeDomain + "/int-vpls-bd-vlan",
             "maapi_num_instances " + list, "maapi_init_cursor " + list, "maapi_get_next " + list,
             "maapi_get_next " + list, "maapi_get_next " + list, "maapi_destroy_cursor " + list,
             "confd_trans_seterr " + warning("eth-1 eth-2")}));
}

TEST_F(PortBasedServiceTest, a_long_path_stays_whole) {
  const std::string group(600, 'g');
  set_vpls_tls("vpls-group " + group, "vpn red", 1, snapshot);
  record_port_based("vpls-group " + group, "vpn red", "eth-1");
  record_change("vpls-group " + group, "vpn red", "eth-1");
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{" + group + "}/vpn{red}/bridge-domain/transparent-lan-service",
                  MOP_DELETED);
  platform.entry("/internal/int-vpls-group{" + group + "}/int-vpls-vpn{red 0}/int-vpls-bd/int-vpls-ac",
                 {text("eth-1")});
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), "All VPLS assigned to interface eth-1 will run as TLS since vpls-group " + group +
                                  " vpn-name red has port based TLS behavior");
}

struct FaultCase {
  const char *function;
  std::size_t nth;
  const char *named;  ///< null: no warning
};

TEST_F(PortBasedServiceTest, a_failed_read_takes_away_what_it_would_have_said) {
  attach("eth-1");
  list({"eth-1", "eth-2"});
  change_entry("eth-1");
  change_entry("eth-2");
  for (const FaultCase &row : {
           FaultCase{"maapi_keypath_diff_iterate", 1, "eth-1 eth-2"},  // the service
           FaultCase{"maapi_keypath_diff_iterate", 2, "eth-1 eth-2"},  // the VLAN
           FaultCase{"maapi_keypath_diff_iterate", 3, "eth-2"},        // eth-1
           FaultCase{"maapi_keypath_diff_iterate", 4, "eth-1"},        // eth-2
           FaultCase{"maapi_init_cursor", 1, nullptr},                 // identifier 0
           FaultCase{"maapi_find_next", 1, nullptr},
           FaultCase{"maapi_num_instances", 1, "eth-1 eth-2"},
           FaultCase{"maapi_init_cursor", 2, nullptr},
           FaultCase{"maapi_get_next", 1, nullptr},
           FaultCase{"maapi_get_next", 2, "eth-1"},
       }) {
    SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.nth));
    fail_only(row.function, row.nth);
    EXPECT_EQ(verdict(), row.named == nullptr ? 0 : -3);
    if (row.named != nullptr) {
      EXPECT_EQ(platform.error(), warning(row.named));
    }
  }
}

TEST_F(PortBasedServiceTest, that_the_service_changed_may_be_missed_by_a_failed_read) {
  attach("eth-1");
  list({"eth-1", "eth-2"});
  change_service();
  fail_only("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(verdict(), 0) << "no interface of its own changed";
  EXPECT_EQ(platform.error(), "");
}

TEST_F(PortBasedServiceTest, a_failed_count_takes_the_list_of_one) {
  attach("eth-1");
  list({"eth-1"});
  change_service();
  fail_only("maapi_num_instances", 1);
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.error(), warning("eth-1"));
}

TEST_F(PortBasedServiceTest, an_interfaces_name_is_a_text) {
  attach("eth-1");
  platform.list(kAccessList, 1, {{u32(1)}, {u32(2)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[0])->type == C_BUF");
  change_service();
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[0])->type == C_BUF");
  platform.list(kAccessList, 1, {{u32(1)}});
  EXPECT_EQ(verdict(), -3) << "a single entry is not read";
}

TEST_F(PortBasedServiceTest, an_interfaces_name_is_a_text_also_where_none_is_listed) {
  attach("service-port-1");
  platform.list(kAccessList, 1, {{u32(1)}, {u32(2)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[0])->type == C_BUF");
  change_service();
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[0])->type == C_BUF");
}

TEST_F(PortBasedServiceTest, the_keys_of_a_vpn_are_a_text_and_a_number) {
  attach("eth-1");
  platform.list(kVpns, 2, {{u32(1), u32(3)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[0])->type == C_BUF");
  platform.list(kVpns, 2, {{text("red"), enum_value(3)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_comn", "(&mc.keys[1])->type == C_UINT32");
}

}  // namespace
