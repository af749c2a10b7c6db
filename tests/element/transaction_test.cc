#include "element/datastore/transaction.h"

#include <gtest/gtest.h>

#include "element/input/input_error.h"
#include "print.h"

using element::make_transaction;
using element::Profile;

namespace {

const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group";
const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group";

Profile two_interfaces() { return Profile({}, {{"eth1", 1, 1001}, {"eth2", 2, 1002}}); }

std::string failure(const Lines &running, const Lines &candidate) {
  try {
    make_transaction(tree_of(running), tree_of(candidate), two_interfaces());
  } catch (const element::InputError &error) {
    return error.what();
  }
  return "none";
}

TEST(Transaction, gives_a_vpn_the_same_identifier_in_both_configurations) {
  const auto transaction =
      make_transaction(tree_of({vpls + "{G}/vpn{M}", vpls + "{G}/vpn{Z}"}),
                       tree_of({vpls + "{A}/vpn{Z}", vpls + "{G}/vpn{A}", vpls + "{G}/vpn{Z}"}), two_interfaces());
  EXPECT_EQ(
      print(transaction->running, "/internal/int-sub-vpls-vpn-bd"),
      (Lines{"/internal/int-sub-vpls-vpn-bd{G M 1}", "/internal/int-sub-vpls-vpn-bd{G M 1}/int-vpls-bd-vlan = 0",
             "/internal/int-sub-vpls-vpn-bd{G Z 2}", "/internal/int-sub-vpls-vpn-bd{G Z 2}/int-vpls-bd-vlan = 0"}));
  EXPECT_EQ(print(transaction->candidate, "/internal/int-vpls-group"),
            (Lines{"/internal/int-vpls-group{A}", "/internal/int-vpls-group{A}/int-vpls-vpn{Z 3}",
                   "/internal/int-vpls-group{A}/int-vpls-vpn{Z 3}/int-vpls-bd/int-vpls-bd-vlan = 0",
                   "/internal/int-vpls-group{A}/int-vpls-vpn{Z 3}/int-vpls-bd/int-vpls-bd-tls = off",
                   "/internal/int-vpls-group{G}", "/internal/int-vpls-group{G}/int-vpls-vpn{A 4}",
                   "/internal/int-vpls-group{G}/int-vpls-vpn{A 4}/int-vpls-bd/int-vpls-bd-vlan = 0",
                   "/internal/int-vpls-group{G}/int-vpls-vpn{A 4}/int-vpls-bd/int-vpls-bd-tls = off",
                   "/internal/int-vpls-group{G}/int-vpls-vpn{Z 2}",
                   "/internal/int-vpls-group{G}/int-vpls-vpn{Z 2}/int-vpls-bd/int-vpls-bd-vlan = 0",
                   "/internal/int-vpls-group{G}/int-vpls-vpn{Z 2}/int-vpls-bd/int-vpls-bd-tls = off"}));
}

TEST(Transaction, counts_the_families_apart) {
  const auto transaction =
      make_transaction(tree_of({}), tree_of({vpls + "{G}/vpn{V}", vpws + "{G}/vpn{V}"}), two_interfaces());
  EXPECT_EQ(print(transaction->candidate, "/KZ-VPLS-MIB"), (Lines{"/KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry{1}"}));
  EXPECT_EQ(print(transaction->candidate, "/KZ-VPWS-MIB"), (Lines{"/KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry{1}"}));
}

TEST(Transaction, keeps_a_layer_3_interfaces_index) {
  const auto transaction =
      make_transaction(tree_of({"/config/l3-interface{l3-b}/vlan = 20", "/mpls/ldp/interface{l3-b}"}),
                       tree_of({"/config/l3-interface{l3-a}/vlan = 10", "/config/l3-interface{l3-b}/vlan = 21",
                                "/mpls/ldp/interface{l3-a}", "/mpls/ldp/interface{l3-b}"}),
                       two_interfaces());
  EXPECT_EQ(print(transaction->running, "/internal"), (Lines{"/internal/int-ldp-intf-l3{l3-b 1 20}"}));
  EXPECT_EQ(print(transaction->candidate, "/internal"),
            (Lines{"/internal/int-ldp-intf-l3{l3-a 2 10}", "/internal/int-ldp-intf-l3{l3-b 1 21}"}));
}

TEST(Transaction, compares_what_is_derived_too) {
  const auto transaction = make_transaction(
      tree_of({vpls + "{G}/vpn{V}/bridge-domain/dot1q = 10"}),
      tree_of({vpls + "{G}/vpn{V}/bridge-domain/dot1q = 20", "/config/vlan{10}/interface{eth2}"}), two_interfaces());
  EXPECT_EQ(print(transaction->changes, test_schema()),
            (Lines{"created /config/vlan{10}", "created /config/vlan{10}/interface{eth2}", "modified " + vpls + "{G}",
                   "modified " + vpls + "{G}/vpn{V}", vpls + "{G}/vpn{V}/bridge-domain/dot1q = 20",
                   "modified /internal/int-sub-vpls-vpn-bd{G V 1}",
                   "/internal/int-sub-vpls-vpn-bd{G V 1}/int-vpls-bd-vlan = 20", "modified /internal/int-vpls-group{G}",
                   "modified /internal/int-vpls-group{G}/int-vpls-vpn{V 1}",
                   "/internal/int-vpls-group{G}/int-vpls-vpn{V 1}/int-vpls-bd/int-vpls-bd-vlan = 20",
                   "created /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 10 1002}"}));
}

TEST(Transaction, of_two_equal_configurations_changes_nothing) {
  const Lines configuration = {vpls + "{G}/vpn{V}/bridge-domain/access-interface{eth1}",
                               vpws + "{G}/vpn{V}/access-interface{eth2}/dot1q = 5"};
  const auto transaction = make_transaction(tree_of(configuration), tree_of(configuration), two_interfaces());
  EXPECT_EQ(print(transaction->changes, test_schema()), Lines{});
}

TEST(Transaction, tells_which_configuration_names_an_unknown_interface) {
  const Lines unknown = {R"(/config/igmp-snooping{3}/interface{"eth 9"})"};
  EXPECT_EQ(failure(unknown, {}),
            "running configuration: /config/igmp-snooping{3}/interface{\"eth 9\"}: not in the profile; expected an "
            "interface of the profile");
  EXPECT_EQ(failure({}, unknown),
            "candidate configuration: /config/igmp-snooping{3}/interface{\"eth 9\"}: not in the profile; expected an "
            "interface of the profile");
}

}  // namespace
