#include "element/projection/projection.h"

#include <gtest/gtest.h>

#include "element/input/input_error.h"
#include "print.h"

using element::Profile;
using element::Tree;

namespace {

const std::string vpls_vpn = "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}";
const std::string bridge_domain = vpls_vpn + "/bridge-domain";
const std::string vpws_vpn = "/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V}";

const std::string member_table = "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
const std::string snooping_table = "/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry";
const std::string pseudowire_table = "/KZ-PWE3-MIB/pwTable/pwEntry";

Profile two_interfaces() { return Profile({}, {{"eth1", 1, 1001}, {"eth2", 2, 1002}}); }

Tree projected(const Lines &configuration) {
  Tree tree = tree_of(configuration);
  const Profile profile = two_interfaces();
  element::Projector projector(profile);
  tree.sort();
  projector.project(tree);
  return tree;
}

struct Case {
  const char *name;
  Lines configuration;
  std::string table;
  Lines entries;
};

void PrintTo(const Case &test, std::ostream *out) { *out << test.name; }

class Projection : public testing::TestWithParam<Case> {};

TEST_P(Projection, derives_the_table) {
  EXPECT_EQ(print(projected(GetParam().configuration), GetParam().table), GetParam().entries);
}

std::string name_of(const testing::TestParamInfo<Case> &info) { return info.param.name; }

const std::string attachments = "/internal/int-sub-vpls-vpn-ac";
const std::string bridge_domains = "/internal/int-sub-vpls-vpn-bd";
const std::string neighbors = "/internal/int-sub-vpls-vpn-nbr";
const std::string vpls_groups = "/internal/int-vpls-group";
const std::string derived_vpn = "/internal/int-vpls-group{G}/int-vpls-vpn{V 1}";

const Case vpls[] = {
    {"attachments_by_VPN_and_interface",
     {bridge_domain + "/access-interface{eth2}", bridge_domain + "/access-interface{eth1}",
      "/mpls/l2vpn-config/l2vpn/vpls-group{A}/vpn{V}/bridge-domain/access-interface{eth1}"},
     attachments,
     {attachments + "{A V 1 eth1}", attachments + "{G V 2 eth1}", attachments + "{G V 2 eth2}"}},
    {"no_attachment_of_a_VPN_without_interfaces", {bridge_domain + "/dot1q = 10"}, attachments, {}},
    {"bridge_domain_VLAN",
     {bridge_domain + "/dot1q = 4094"},
     bridge_domains,
     {bridge_domains + "{G V 1}", bridge_domains + "{G V 1}/int-vpls-bd-vlan = 4094"}},
    {"bridge_domain_VLAN_0_without_dot1q",
     {vpls_vpn},
     bridge_domains,
     {bridge_domains + "{G V 1}", bridge_domains + "{G V 1}/int-vpls-bd-vlan = 0"}},
    {"neighbors_in_address_order",
     {vpls_vpn + "/vfi/neighbor{10.0.0.1}/pw-id = 8", vpls_vpn + "/vfi/neighbor{9.0.0.1}/pw-id = 4294967295"},
     neighbors,
     {neighbors + "{G V 1 9.0.0.1}", neighbors + "{G V 1 9.0.0.1}/role = 0",
      neighbors + "{G V 1 9.0.0.1}/pw-id = 4294967295", neighbors + "{G V 1 10.0.0.1}",
      neighbors + "{G V 1 10.0.0.1}/role = 0", neighbors + "{G V 1 10.0.0.1}/pw-id = 8"}},
    {"a_bare_VPN_has_the_values_that_stand_for_what_is_not_set",
     {vpls_vpn},
     vpls_groups,
     {vpls_groups + "{G}", derived_vpn, derived_vpn + "/int-vpls-bd/int-vpls-bd-vlan = 0",
      derived_vpn + "/int-vpls-bd/int-vpls-bd-tls = off"}},
    {"a_full_bridge_domain",
     {bridge_domain + "/dot1q = 10", bridge_domain + "/bridge-mtu = 1500", bridge_domain + "/transparent-lan-service",
      bridge_domain + "/access-interface{eth1}"},
     vpls_groups,
     {vpls_groups + "{G}", derived_vpn, derived_vpn + "/int-vpls-bd/int-vpls-bd-vlan = 10",
      derived_vpn + "/int-vpls-bd/int-vpls-bd-tls = on", derived_vpn + "/int-vpls-bd/int-vpls-bd-mtu = 1500",
      derived_vpn + "/int-vpls-bd/int-vpls-ac{eth1}"}},
    {"an_untagged_interface",
     {bridge_domain + "/access-interface{eth1}/encapsulation/untagged"},
     derived_vpn + "/int-vpls-bd/int-vpls-ac",
     {derived_vpn + "/int-vpls-bd/int-vpls-ac{eth1}",
      derived_vpn + "/int-vpls-bd/int-vpls-ac{eth1}/int-vpls-encap/int-vpls-encap-untagged = untagged"}},
    {"an_interface_with_ranges",
     {bridge_domain + "/access-interface{eth1}/encapsulation/dot1q-range{200 300}",
      bridge_domain + "/access-interface{eth1}/encapsulation/dot1q-range{5 5}"},
     derived_vpn + "/int-vpls-bd/int-vpls-ac",
     {derived_vpn + "/int-vpls-bd/int-vpls-ac{eth1}",
      derived_vpn + "/int-vpls-bd/int-vpls-ac{eth1}/int-vpls-encap/int-vpls-encap-dot1q-range{5 5}",
      derived_vpn + "/int-vpls-bd/int-vpls-ac{eth1}/int-vpls-encap/int-vpls-encap-dot1q-range{200 300}"}},
    {"a_group_without_VPNs", {"/mpls/l2vpn-config/l2vpn/vpls-group{G}"}, vpls_groups, {vpls_groups + "{G}"}},
    {"one_configuration_entry_a_VPN",
     {vpls_vpn, "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{W}", vpws_vpn},
     "/KZ-VPLS-MIB",
     {"/KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry{1}", "/KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry{2}"}},
};

INSTANTIATE_TEST_SUITE_P(Vpls, Projection, testing::ValuesIn(vpls), name_of);

const std::string vpws_attachments = "/internal/int-vpws-intf-app";
const std::string encapsulations = "/internal/int-vpws-intf-encap";
const std::string tunnels = "/internal/int-vpws-tunnel-idx";
const std::string vpws_groups = "/internal/int-vpws-group";

// 1.0.0.0 and 2.0.0.0 as the words 1 and 2 of a machine that keeps the lowest byte first.
const Case vpws[] = {
    {"attachments_with_their_VLAN",
     {vpws_vpn + "/access-interface{eth1}/dot1q = 4094", vpws_vpn + "/access-interface{eth2}"},
     vpws_attachments,
     {vpws_attachments + "{G V 1 eth1 4094}", vpws_attachments + "{G V 1 eth2 0}"}},
    {"an_encapsulation_entry_for_an_attachment_without_one",
     {vpws_vpn + "/access-interface{eth1}/dot1q = 5"},
     encapsulations,
     {encapsulations + "{G V 1 eth1}"}},
    {"an_untagged_interface",
     {vpws_vpn + "/access-interface{eth1}/encapsulation/untagged"},
     encapsulations,
     {encapsulations + "{G V 1 eth1}", encapsulations + "{G V 1 eth1}/int-vpws-encap-untagged = untagged"}},
    {"an_interface_with_ranges",
     {vpws_vpn + "/access-interface{eth1}/encapsulation/dot1q-range{30 40}",
      vpws_vpn + "/access-interface{eth1}/encapsulation/dot1q-range{4 9}"},
     encapsulations,
     {encapsulations + "{G V 1 eth1}", encapsulations + "{G V 1 eth1}/int-vpws-encap-dot1q-range{4 9}",
      encapsulations + "{G V 1 eth1}/int-vpws-encap-dot1q-range{30 40}"}},
    {"tunnels_of_neighbors_and_backup_neighbors",
     {vpws_vpn + "/neighbor{2.0.0.0}/pw-id = 7", vpws_vpn + "/backup-neighbor{1.0.0.0}/pw-id = 8"},
     tunnels,
     {tunnels + "{G 1 1 8}", tunnels + "{G 1 1 8}/role = 1", tunnels + "{G 1 1 8}/vpn = V", tunnels + "{G 1 2 7}",
      tunnels + "{G 1 2 7}/role = 0", tunnels + "{G 1 2 7}/vpn = V"}},
    {"one_tunnel_where_a_backup_repeats_a_neighbor_and_it_is_the_neighbors",
     {vpws_vpn + "/neighbor{2.0.0.0}/pw-id = 7", vpws_vpn + "/backup-neighbor{2.0.0.0}/pw-id = 7"},
     tunnels,
     {tunnels + "{G 1 2 7}", tunnels + "{G 1 2 7}/role = 0", tunnels + "{G 1 2 7}/vpn = V"}},
    {"two_tunnels_where_a_backup_has_a_neighbors_address_and_another_identifier",
     {vpws_vpn + "/neighbor{2.0.0.0}/pw-id = 7", vpws_vpn + "/backup-neighbor{2.0.0.0}/pw-id = 8"},
     tunnels,
     {tunnels + "{G 1 2 7}", tunnels + "{G 1 2 7}/role = 0", tunnels + "{G 1 2 7}/vpn = V", tunnels + "{G 1 2 8}",
      tunnels + "{G 1 2 8}/role = 1", tunnels + "{G 1 2 8}/vpn = V"}},
    {"groups_and_their_VPNs",
     {vpws_vpn, "/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{A}", "/mpls/l2vpn-config/l2vpn/vpws-group{H}"},
     vpws_groups,
     {vpws_groups + "{G}", vpws_groups + "{G}/int-vpws{A 1}", vpws_groups + "{G}/int-vpws{V 2}", vpws_groups + "{H}"}},
    {"one_configuration_entry_a_VPN",
     {vpws_vpn, vpls_vpn},
     "/KZ-VPWS-MIB",
     {"/KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry{1}"}},
};

INSTANTIATE_TEST_SUITE_P(Vpws, Projection, testing::ValuesIn(vpws), name_of);

const std::string ldp_interfaces = "/internal/int-ldp-intf-l3";

const Case others[] = {
    {"pseudowires_of_both_families_by_type_VPN_and_address",
     {vpls_vpn + "/vfi/neighbor{10.0.0.1}/pw-id = 1", vpls_vpn + "/vfi/neighbor{9.0.0.1}/pw-id = 1",
      vpws_vpn + "/neighbor{10.0.0.1}/pw-id = 1", vpws_vpn + "/backup-neighbor{10.0.0.1}/pw-id = 1"},
     "/KZ-PWE3-MIB",
     {pseudowire_table + "{1 1 9.0.0.1}", pseudowire_table + "{1 1 10.0.0.1}", pseudowire_table + "{2 1 10.0.0.1}",
      pseudowire_table + "{3 1 10.0.0.1}"}},
    {"LDP_interfaces_on_layer_3_interfaces_only",
     {"/config/l3-interface{l3-a}/vlan = 30", "/config/l3-interface{l3-b}/vlan = 4", "/mpls/ldp/interface{l3-b}",
      "/mpls/ldp/interface{l3-c}"},
     ldp_interfaces,
     {ldp_interfaces + "{l3-b 2 4}"}},
    {"static_members_by_VLAN_and_ifindex",
     {"/config/vlan{10}/interface{eth1}", "/config/vlan{9}/interface{eth2}", "/config/vlan{9}/interface{eth1}",
      "/config/vlan{8}"},
     "/KZ-VLAN-MANAGER-MIB",
     {member_table + "{1 9 1001}", member_table + "{1 9 1002}", member_table + "{1 10 1001}"}},
    {"snooping_interfaces_by_instance_and_ifindex",
     {"/config/igmp-snooping{2}/interface{eth2}", "/config/igmp-snooping{1}/interface{eth2}"},
     "/KZ-MGMD-ROUTER-MIB",
     {snooping_table + "{1 1002}", snooping_table + "{2 1002}"}},
    {"nothing_of_an_empty_configuration", {}, "/", {}},
};

INSTANTIATE_TEST_SUITE_P(OtherApplications, Projection, testing::ValuesIn(others), name_of);

TEST(Projection, keeps_what_the_operator_wrote) {
  const Lines configuration = {bridge_domain + "/dot1q = 10", bridge_domain + "/access-interface{eth1}"};
  EXPECT_EQ(print(projected(configuration), "/mpls"), print(tree_of(configuration), "/mpls"));
}

// What is compared and read has the types that the applications keep, not those that an operator's leafs have.
TEST(Projection, gives_values_the_types_of_the_derived_nodes) {
  const Tree tree = projected({bridge_domain + "/dot1q = 10", vpws_vpn + "/neighbor{1.2.3.4}/pw-id = 5",
                               vpws_vpn + "/access-interface{eth1}/encapsulation/dot1q-range{7 9}",
                               "/config/vlan{10}/interface{eth1}", "/config/igmp-snooping{3}/interface{eth1}"});
  const auto keys = [&tree](const std::string &list) { return tree.find(list)->children.front().keys; };
  EXPECT_EQ(tree.find(derived_vpn + "/int-vpls-bd/int-vpls-bd-vlan")->value, element::Value(std::uint32_t{10}));
  EXPECT_EQ(tree.find(derived_vpn + "/int-vpls-bd/int-vpls-bd-tls")->value, element::Value(element::Enumeration{2}));
  EXPECT_EQ(keys(encapsulations + "{G V 1 eth1}/int-vpws-encap-dot1q-range"),
            (std::vector<element::Value>{std::uint32_t{7}, std::uint32_t{9}}));
  EXPECT_EQ(keys(member_table), (std::vector<element::Value>{std::uint32_t{1}, std::int32_t{10}, std::int32_t{1001}}));
  EXPECT_EQ(keys(snooping_table), (std::vector<element::Value>{std::int32_t{3}, std::int32_t{1001}}));

  const auto *address = std::get_if<element::Ipv4>(&tree.find(vpws_vpn + "/neighbor")->children.front().keys.front());
  ASSERT_NE(address, nullptr);
  EXPECT_EQ(keys(tunnels),
            (std::vector<element::Value>{std::string("G"), std::uint32_t{1}, address->word, std::uint32_t{5}}));
}

TEST(Projection, refuses_an_interface_that_the_profile_does_not_have) {
  const std::pair<Lines, std::string> refused[] = {
      {{"/config/vlan{10}/interface{eth3}"},
       "/config/vlan{10}/interface{eth3}: not in the profile (near: eth1, eth2); expected an interface of the profile"},
      {{"/config/igmp-snooping{1}/interface{eth3}"},
       "/config/igmp-snooping{1}/interface{eth3}: not in the profile (near: eth1, eth2); expected an interface of the "
       "profile"}};
  for (const auto &[configuration, message] : refused) {
    try {
      projected(configuration);
      ADD_FAILURE() << configuration.front() << " was taken";
    } catch (const element::InputError &error) {
      EXPECT_EQ(error.what(), message);
    }
  }
}

TEST(Projection, leaves_an_access_interface_that_the_profile_does_not_have_to_the_validation) {
  EXPECT_EQ(print(projected({bridge_domain + "/access-interface{eth3}"}), attachments),
            (Lines{attachments + "{G V 1 eth3}"}));
}

}  // namespace
