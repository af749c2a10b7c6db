#include "l2vpn/configuration.h"

#include <gtest/gtest.h>

#include "l2vpn/edit.h"
#include "tests/element/print.h"

namespace {

const l2vpn::VpnKey data{l2vpn::Family::vpls, "campus", "data"};
const l2vpn::VpnKey south{l2vpn::Family::vpws, "branches", "south"};

/// Every node that an operator can write about layer-2 VPNs and what shares ports with them, as print gives them.
const Lines everything{
    "/config/service-port{3}",
    "/config/service-port{3}/match/vlan/vlan-id/vid = 30",
    "/config/service-port{4}",
    "/config/service-port{4}/match/vlan/vlan-id/any",
    "/config/service-port{5}",
    "/config/vlan{20}",
    "/config/vlan{20}/interface{ge-2}",
    "/config/vlan{20}/interface{ge-3}",
    "/config/l3-interface{core}",
    "/config/l3-interface{core}/vlan = 20",
    "/config/igmp-snooping{7}",
    "/config/igmp-snooping{7}/interface{ge-9}",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/neighbor{192.0.2.1}",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/neighbor{192.0.2.1}/pw-id = 11",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/backup-neighbor{192.0.2.2}",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/backup-neighbor{192.0.2.2}/pw-id = 12",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{ge-4}",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{ge-4}/dot1q = 40",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{ge-4}/encapsulation/"
    "dot1q-range{41 41}",
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{ge-4}/encapsulation/"
    "dot1q-range{50 59}",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/vfi/neighbor{192.0.2.3}",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/vfi/neighbor{192.0.2.3}/pw-id = 13",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/dot1q = 6",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/bridge-mtu = 1500",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/transparent-lan-service",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/access-interface{ge-1}",
    "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/access-interface{ge-1}/encapsulation/untagged",
    "/mpls/ldp/interface{core}",
    "/mpls/ldp/interface{edge}",
};

/// The same as data.
l2vpn::Configuration written() {
  l2vpn::Configuration all;
  all.vpns.push_back({data, 6, 1500, true, {{.interface = "ge-1", .untagged = true}}, {{"192.0.2.3", 13}}});
  l2vpn::Vpn line{south};
  line.attachments = {{.interface = "ge-4", .dot1q = 40, .ranges = {{41, 41}, {50, 59}}}};
  line.neighbors = {{"192.0.2.1", 11}};
  line.backup_neighbors = {{"192.0.2.2", 12}};
  all.vpns.push_back(line);
  all.static_members = {{20, "ge-2"}, {20, "ge-3"}};
  all.uplinks = {{"core", 20}, {"edge"}};
  all.snooping = {{7, "ge-9"}};
  all.service_ports = {{3, 30}, {4, {}, true}, {5}};
  return all;
}

element::Tree operator_tree() { return l2vpn::make_tree(test_schema(), written()); }

/// The lines below the node of a path, without the path.
Lines below(const element::Tree &tree, const std::string &path) {
  Lines lines;
  for (const std::string &line : print(tree, path)) {
    if (line.size() > path.size() && line[path.size()] == '/') lines.push_back(line.substr(path.size() + 1));
  }
  return lines;
}

TEST(Configuration, is_written_node_by_node) { EXPECT_EQ(print(operator_tree()), everything); }

TEST(Configuration, is_read_back_as_it_was_written) {
  const l2vpn::Configuration read = l2vpn::read_configuration(tree_of(everything));
  EXPECT_EQ(print(l2vpn::make_tree(test_schema(), read)), everything);

  ASSERT_EQ(read.vpns.size(), 2U);
  EXPECT_EQ(read.vpns[0].key, data);
  EXPECT_EQ(read.vpns[0].bridge_mtu, 1500U);
  EXPECT_EQ(read.find(south), &read.vpns[1]);
  EXPECT_EQ(read.find({l2vpn::Family::vpls, "branches", "south"}), nullptr);
  EXPECT_EQ(read.vpns[1].find_attachment("ge-4"), &read.vpns[1].attachments[0]);
  EXPECT_EQ(read.vpns[1].find_attachment("ge-1"), nullptr);
  EXPECT_EQ(read.uplinks[0].vlan, 20U);
  EXPECT_EQ(read.uplinks[1].vlan, std::nullopt);
}

TEST(Configuration, an_empty_tree_holds_nothing) {
  const l2vpn::Configuration read = l2vpn::read_configuration(element::Tree(test_schema()));
  EXPECT_TRUE(read.vpns.empty() && read.static_members.empty() && read.uplinks.empty() && read.snooping.empty() &&
              read.service_ports.empty());
}

TEST(Edit, what_is_put_twice_is_there_once) {
  element::Tree twice = operator_tree();
  for (const l2vpn::Vpn &vpn : written().vpns) l2vpn::put_vpn(twice, vpn);
  EXPECT_EQ(print(twice), everything);
}

TEST(Edit, entries_are_kept_in_key_order) {
  element::Tree tree(test_schema());
  l2vpn::put_attachment(tree, south, {.interface = "ge-2", .ranges = {{30, 39}, {5, 9}, {5, 6}}});
  l2vpn::put_attachment(tree, south, {.interface = "ge-1"});
  EXPECT_EQ(below(tree, l2vpn::vpn_path(south)), (Lines{"access-interface{ge-1}", "access-interface{ge-2}",
                                                        "access-interface{ge-2}/encapsulation/dot1q-range{5 6}",
                                                        "access-interface{ge-2}/encapsulation/dot1q-range{5 9}",
                                                        "access-interface{ge-2}/encapsulation/dot1q-range{30 39}"}));
}

TEST(Edit, what_is_erased_is_gone_and_the_rest_stays) {
  element::Tree tree = operator_tree();
  l2vpn::erase_attachments(tree, south);
  l2vpn::erase_neighbor(tree, south, "192.0.2.1");
  l2vpn::erase_backup_neighbor(tree, south, "192.0.2.2");
  EXPECT_EQ(below(tree, l2vpn::vpn_path(south)), Lines{});

  l2vpn::erase_attachment(tree, data, "ge-1");
  l2vpn::set_dot1q(tree, data, {});
  l2vpn::set_bridge_mtu(tree, data, {});
  l2vpn::set_transparent_lan_service(tree, data, false);
  EXPECT_EQ(below(tree, l2vpn::vpn_path(data)),
            (Lines{"vfi/neighbor{192.0.2.3}", "vfi/neighbor{192.0.2.3}/pw-id = 13"}));
  l2vpn::erase_vpn(tree, data);
  EXPECT_EQ(below(tree, "/mpls/l2vpn-config/l2vpn/vpls-group{campus}"), Lines{});

  l2vpn::erase_static_member(tree, {20, "ge-2"});
  l2vpn::erase_uplink(tree, "core");
  l2vpn::erase_snooping_interface(tree, {7, "ge-9"});
  for (const std::uint32_t number : {3U, 4U, 5U}) l2vpn::erase_service_port(tree, number);
  EXPECT_EQ(below(tree, "/config"), (Lines{"vlan{20}", "vlan{20}/interface{ge-3}", "l3-interface{core}",
                                           "l3-interface{core}/vlan = 20", "igmp-snooping{7}"}));
  EXPECT_EQ(below(tree, "/mpls/ldp"), Lines{"interface{edge}"});
}

TEST(Edit, what_is_missing_can_be_erased) {
  element::Tree tree(test_schema());
  l2vpn::erase_vpn(tree, data);
  l2vpn::erase_attachments(tree, south);
  l2vpn::set_dot1q(tree, data, {});
  l2vpn::erase_service_port(tree, 1);
  EXPECT_EQ(print(tree), Lines{});
}

TEST(Edit, names_that_need_quotes_are_found_again) {
  const l2vpn::VpnKey odd{l2vpn::Family::vpls, "a b}", "\"{"};
  element::Tree tree(test_schema());
  l2vpn::put_vpn(tree, l2vpn::Vpn{odd, 9, {}, false, {{.interface = "lag 1"}}});
  ASSERT_EQ(l2vpn::read_configuration(tree).vpns.size(), 1U);
  EXPECT_EQ(l2vpn::read_configuration(tree).vpns[0].key, odd);
  EXPECT_NE(tree.find(l2vpn::attachment_path(odd, "lag 1")), nullptr);
  l2vpn::erase_attachment(tree, odd, "lag 1");
  l2vpn::set_dot1q(tree, odd, {});
  EXPECT_EQ(below(tree, l2vpn::vpn_path(odd)), Lines{});
}

TEST(Edit, a_value_that_its_leaf_cannot_hold_is_refused) {
  element::Tree tree(test_schema());
  EXPECT_THROW(l2vpn::set_dot1q(tree, data, 65536), std::invalid_argument);
  EXPECT_THROW(l2vpn::put_neighbor(tree, south, {"north", 1}), std::invalid_argument);
  EXPECT_THROW(l2vpn::put_static_member(tree, {70000, "ge-1"}), std::invalid_argument);
}

}  // namespace
