#include "report/change_summary.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

const std::string kVlan5 = R"("base:config": {"vlan": [{"id": 5, "interface": [{"name": "ge-1"}, {"name": "ge-2"}]}]})";

/// Two VPNs with an attachment and a neighbour each, and a VLAN with two members.
class ChangeSummary : public testing::Test {
 protected:
  static std::string vpns(const std::string &east, const std::string &west) {
    return vpws_group(vpn("east", east) + ", " + vpn("west", west)) + ", " + kVlan5;
  }

  static inline const std::string kEast =
      R"(, "access-interface": [{"name": "ge-1", "dot1q": 5}], "neighbor": [{"address": "192.0.2.1", "pw-id": 1}])";

  Outcome check(const std::string &running, const std::string &candidate, std::vector<std::string> options = {}) const {
    folder.configure(running, candidate);
    options.insert(options.begin(), {"check", folder.path()});
    return run_with_answers(options);
  }

  std::string first_line(const std::string &running, const std::string &candidate) const {
    const std::string out = check(running, candidate).out;
    return out.substr(0, out.find('\n'));
  }

  const CommitFolder folder;
};

TEST_F(ChangeSummary, stands_before_all_else_in_the_text) {
  EXPECT_EQ(first_line("", vpns(kEast, "")),
            "summary: VPNs 2 added; attachments 1 added; neighbours 1 added; members 2 added");
  EXPECT_EQ(first_line(vpns(kEast, ""), ""),
            "summary: VPNs 2 removed; attachments 1 removed; neighbours 1 removed; members 2 removed");
  EXPECT_EQ(first_line("", R"("x:y": 1, "base:config": {"l3-interface": [{"name": "l3", "vlan": 5}]})"),
            "summary: no VPN, attachment, neighbour or member is touched");
  EXPECT_EQ(first_line(kVlan5, kVlan5), "summary: nothing to commit");
}

TEST_F(ChangeSummary, counts_what_stands_in_a_vpn_by_itself) {
  const std::string running = vpns(kEast, "");
  const auto east = [](const std::string &attachment, const std::string &neighbor) {
    return R"(, "access-interface": [{"name": "ge-1")" + attachment + R"(}], "neighbor": [{"address": "192.0.2.1")" +
           neighbor + "}]";
  };
  EXPECT_EQ(first_line(running, vpns(east(R"(, "dot1q": 6)", R"(, "pw-id": 1)"), "")),
            "summary: attachments 1 changed");
  EXPECT_EQ(
      first_line(running,
                 vpns(east(R"(, "encapsulation": {"dot1q-range": [{"min": 1, "max": 2}]})", R"(, "pw-id": 2)"), kEast)),
      "summary: attachments 1 added, 1 changed; neighbours 1 added, 1 changed");
  EXPECT_EQ(first_line(running, vpws_group(vpn("east", kEast)) +
                                    R"(, "base:config": {"vlan": [{"id": 5, "interface": [{"name": "ge-1"}]}]})"),
            "summary: VPNs 1 removed; members 1 removed");
}

TEST_F(ChangeSummary, counts_a_leaf_of_a_vpn_as_a_change_of_it) {
  const auto vpls = [](const std::string &vlan) {
    return R"("mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"mpls-l2vpn-vpls:vpls-group": [{"name": "g", "vpn": [
{"name": "v", "bridge-domain": {"dot1q": )" +
           vlan + "}}]}]}}}";
  };
  EXPECT_EQ(first_line(vpls("5"), vpls("6")), "summary: VPNs 1 changed");
}

TEST_F(ChangeSummary, is_in_the_document) {
  const auto json = nlohmann::json::parse(verdict_in(check(vpns(kEast, ""), "", {"--format=json"}).out));
  const auto counts = [](int removed) { return nlohmann::json{{"added", 0}, {"changed", 0}, {"removed", removed}}; };
  EXPECT_EQ(json.at("summary"), (nlohmann::json{{"vpns", counts(2)},
                                                {"attachments", counts(1)},
                                                {"neighbors", counts(1)},
                                                {"members", counts(2)},
                                                {"removed", 6}}));
  EXPECT_FALSE(json.contains("refusal"));
}

TEST_F(ChangeSummary, a_commit_that_removes_more_than_is_allowed_is_refused_beside_its_verdict) {
  const std::string refusal = "6 VPNs, attachments, neighbours and members are removed; --max-removed allows 5";
  const Outcome text = check(vpns(kEast, ""), "", {"--max-removed=5"});
  EXPECT_EQ(text.status, 3);
  EXPECT_NE(text.out.find("members 2 removed\nrefused: " + refusal + "\nchanges: "), std::string::npos) << text.out;
  EXPECT_NE(text.out.find("\ncommit accepted: "), std::string::npos) << text.out;
  const Outcome json = check(vpns(kEast, ""), "", {"--max-removed", "5", "--format=json"});
  EXPECT_EQ(json.status, 3);
  EXPECT_EQ(nlohmann::json::parse(verdict_in(json.out)).at("refusal"), refusal);
  EXPECT_EQ(nlohmann::json::parse(verdict_in(json.out)).at("decision"), "accepted");
  EXPECT_EQ(check(vpns(kEast, ""), "", {"--max-removed=6"}).status, 0);
  EXPECT_EQ(check("", kVlan5, {"--max-removed=0"}).status, 0);
}

TEST_F(ChangeSummary, a_commit_that_changes_nothing_is_refused_where_that_is_asked_for) {
  const Outcome outcome = check(kVlan5, kVlan5, {"--fail-on-no-change"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_TRUE(outcome.out.starts_with("summary: nothing to commit\nrefused: nothing to commit\nchanges: 0\n"));
  EXPECT_EQ(check(kVlan5, kVlan5).status, 0);
  EXPECT_EQ(check(kVlan5, "", {"--fail-on-no-change"}).status, 0);
}

TEST_F(ChangeSummary, one_of_many_commits_is_refused_alone) {
  const CommitFolder other;
  folder.configure(kVlan5, "");
  other.configure("", kVlan5);
  const ProcessResult outcome = run_process("VPNVAL_PLUGIN=" + answering_plugin_file() + " " + vpnval_file() +
                                            " check --max-removed=1 " + folder.path() + " " + other.path());
  EXPECT_EQ(outcome.status, 3);
  EXPECT_TRUE(outcome.output.starts_with(
      folder.path() +
      ": accepted\nrefused: 2 VPNs, attachments, neighbours and members are removed; --max-removed "
      "allows 1\n" +
      other.path() + ": accepted\n"))
      << outcome.output;
}

}  // namespace
