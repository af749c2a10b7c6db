#include "cli/commands/rollback.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "report/json/series_json.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"

namespace {

using nlohmann::json;

class Rollback : public testing::Test {
 protected:
  Rollback() { remove_one_of_two_with_a_pw_id(); }

  Outcome check(std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"check", folder.path(), "--rollback"});
    return run_with_library(more);
  }

  /// Two VPNs share a pw-id, which the element has accepted once. Without one of them all is well; the way back would
  /// bring the fault.
  void remove_one_of_two_with_a_pw_id() { folder.configure(vpws_group(east + "," + west), vpws_group(east)); }

  const std::string neighbour = R"(, "neighbor": [{"address": "192.0.2.1", "pw-id": 102}])";
  const std::string east = vpn("east", neighbour);
  const std::string west = vpn("west", neighbour);
  CommitFolder folder;
};

TEST_F(Rollback, a_way_back_that_is_rejected_follows_the_verdict_and_rejects) {
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 1) << outcome.err;
  const std::size_t commit = outcome.out.find("\ncommit accepted: ");
  const std::size_t back = outcome.out.find("\n\nthe way back: rejected: ");
  ASSERT_NE(commit, std::string::npos) << outcome.out;
  ASSERT_NE(back, std::string::npos) << outcome.out;
  EXPECT_LT(commit, back);
  EXPECT_NE(outcome.out.find("[pw-id-twice]", back), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find(folder.file("running.json") + ":", back), std::string::npos) << outcome.out;
}

TEST_F(Rollback, a_way_back_that_is_accepted_is_one_line) {
  folder.configure(vpws_group(east), vpws_group(east + "," + vpn("other")));
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.ends_with("\n\nthe way back: accepted\n")) << outcome.out;
}

TEST_F(Rollback, the_status_is_the_worse_of_both) {
  folder.configure(vpws_group(east), vpws_group(east + "," + west));
  EXPECT_EQ(check().status, 1);
  EXPECT_NE(check().out.find("\nthe way back: accepted\n"), std::string::npos);
}

TEST_F(Rollback, stands_in_json_and_is_read_back) {
  const Outcome outcome = check({"--format", "json"});
  const json document = json::parse(verdict_in(outcome.out));
  EXPECT_EQ(document["decision"], "accepted");
  const json &back = document["rollback"];
  EXPECT_EQ(back["decision"], "rejected");
  EXPECT_EQ(back["total"]["rejected"], 1);
  EXPECT_EQ(back["points"].back()["verdict"], "rejected");
  EXPECT_EQ(back["findings"][0]["rule"], "pw-id-twice");
  const report::CommitReport commit = report::read_single_result(outcome.out, "name").commit;
  ASSERT_EQ(commit.rollback.size(), 1u);
  EXPECT_EQ(commit.rollback[0].name, "name, the way back");
  EXPECT_EQ(commit.rollback[0].decision, host::Decision::rejected);
  EXPECT_EQ(commit.rollback[0].findings.size(), 1u);
  folder.write("document", outcome.out);
  EXPECT_EQ(run_reader("fits_schema.py", SOURCE_DIR "/docs/verdict.schema.json " + folder.file("document")).output,
            "1 documents fit\n");
}

TEST_F(Rollback, without_the_option_json_has_no_such_field) {
  const Outcome outcome = run_with_library({"check", folder.path(), "--format", "json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_FALSE(json::parse(verdict_in(outcome.out)).contains("rollback"));
}

TEST_F(Rollback, is_marked_in_sarif) {
  const json log = json::parse(check({"--format", "sarif"}).out);
  const json &results = log["runs"][0]["results"];
  ASSERT_EQ(results.size(), 1u);
  EXPECT_EQ(results[0]["properties"]["rollback"], true);
  EXPECT_EQ(results[0]["properties"]["commit"], folder.path() + ", the way back");
}

TEST_F(Rollback, is_a_case_of_its_own_in_junit) {
  const std::string document = check({"--format", "junit"}).out;
  EXPECT_NE(document.find("tests=\"2\" failures=\"1\""), std::string::npos) << document;
  EXPECT_NE(document.find("name=\"" + folder.path() + ", the way back\""), std::string::npos);
}

TEST_F(Rollback, is_marked_in_githubs_commands) {
  const std::string commands = check({"--format", "github"}).out;
  EXPECT_NE(commands.find("title=pw-id-twice (the device says; the way back)::"), std::string::npos) << commands;
}

TEST_F(Rollback, a_budget_of_nothing_leaves_the_verdict) {
  const Outcome outcome = check({"--budget", "0"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find("\nthe way back: rejected: "), std::string::npos);
}

TEST_F(Rollback, a_suppression_may_fit_either_way) {
  folder.write("known", "pw-id-twice /mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}/neighbor{*} # known\n");
  const Outcome outcome = check({"--suppress", folder.file("known")});
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

}  // namespace
