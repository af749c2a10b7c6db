#include "cli/commands/show_command.h"

#include <gtest/gtest.h>

#include "tests/cli/commit_folder.h"

namespace {

const std::string neighbour = R"(, "neighbor": [{"address": "192.0.2.1", "pw-id": 7}])";

TEST(ShowCommand, without_a_path_prints_every_derived_tree) {
  const CommitFolder folder;
  folder.configure("", vpws_group(vpn("east", neighbour + R"(, "access-interface": [{"name": "ge-1", "dot1q": 5}])")) +
                           "," + vlan_member("ge-2"));
  const Outcome outcome = run_with_answers({"show", folder.path()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "/internal/int-vpws-intf-app{metro east 1 ge-1 5}\n"
            "/internal/int-vpws-intf-encap{metro east 1 ge-1}\n"
            "/internal/int-vpws-tunnel-idx{metro 1 16908480 7}/role: 0\n"
            "/internal/int-vpws-tunnel-idx{metro 1 16908480 7}/vpn: east\n"
            "/internal/int-vpws-group{metro}/int-vpws{east 1}\n"
            "/KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry{1}\n"
            "/KZ-PWE3-MIB/pwTable/pwEntry{2 1 192.0.2.1}\n"
            "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 100 1002}\n");
}

TEST(ShowCommand, a_path_leads_into_any_tree) {
  const CommitFolder folder;
  folder.configure("", vpws_group(vpn("east", neighbour)));
  const std::vector<std::pair<std::string, std::string>> rows{
      {"/mpls/l2vpn-config/l2vpn/vpws-group{metro}",
       "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{east}/neighbor{192.0.2.1}/pw-id: 7\n"},
      {"/internal/int-vpws-group", "/internal/int-vpws-group{metro}/int-vpws{east 1}\n"},
      {"/KZ-PWE3-MIB:KZ-PWE3-MIB", "/KZ-PWE3-MIB/pwTable/pwEntry{2 1 192.0.2.1}\n"},
      {"/internal/int-vpws-tunnel-idx{metro 1 16908480 7}/vpn",
       "/internal/int-vpws-tunnel-idx{metro 1 16908480 7}/vpn: east\n"},
  };
  for (const auto &[path, expected] : rows) {
    EXPECT_EQ(run_with_answers({"show", folder.path(), path}).out, expected) << path;
  }
}

TEST(ShowCommand, the_root_is_every_tree) {
  const CommitFolder folder;
  folder.configure("", vlan_member("ge-2"));
  EXPECT_EQ(run_with_answers({"show", folder.path(), "/"}).out,
            "/config/vlan{100}/interface{ge-2}\n"
            "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 100 1002}\n");
}

TEST(ShowCommand, an_enumeration_is_shown_by_name_and_number) {
  const CommitFolder folder;
  folder.configure("", R"("mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"mpls-l2vpn-vpls:vpls-group": [
    {"name": "campus", "vpn": [{"name": "voice"}]}]}}})");
  const std::string bridge_domain = "/internal/int-vpls-group{campus}/int-vpls-vpn{voice 1}/int-vpls-bd";
  EXPECT_EQ(run_with_answers({"show", folder.path(), bridge_domain}).out,
            bridge_domain + "/int-vpls-bd-vlan: 0\n" + bridge_domain + "/int-vpls-bd-tls: off (2)\n");
}

TEST(ShowCommand, the_candidate_is_shown_unless_the_running_configuration_is_wanted) {
  const CommitFolder folder;
  folder.configure(vpws_group(vpn("east")), vpws_group(vpn("west")));
  const std::string path = "/internal/int-vpws-group";
  EXPECT_EQ(run_with_answers({"show", folder.path(), path}).out, "/internal/int-vpws-group{metro}/int-vpws{west 2}\n");
  EXPECT_EQ(run_with_answers({"show", folder.path(), path, "--running-config"}).out,
            "/internal/int-vpws-group{metro}/int-vpws{east 1}\n");
}

TEST(ShowCommand, where_nothing_stands_it_says_so) {
  const CommitFolder folder;
  const Outcome outcome = run_with_answers({"show", folder.path(), "/internal"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "no such node\n");
}

TEST(ShowCommand, a_path_that_the_data_model_does_not_have_is_a_usage_error) {
  const CommitFolder folder;
  const Outcome outcome = run_with_answers({"show", folder.path(), "/internal/no-such-thing"});
  EXPECT_EQ(outcome.status, 64);
  EXPECT_EQ(outcome.err,
            "vpnval: path \"/internal/no-such-thing\": \"no-such-thing\" is not in the data model there\n");
}

}  // namespace
