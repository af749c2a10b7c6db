#include "report/unreadable_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "report/ci/github.h"
#include "report/ci/junit.h"
#include "report/ci/sarif.h"
#include "report/json/verdict_json.h"
#include "report/text/series_text.h"
#include "report/text/verdict_text.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/cli/sample_findings.h"
#include "tests/support/build_under_test.h"

namespace {

using nlohmann::json;
using report::UnreadableName;

const UnreadableName two_questions{"a <b>", 2, {"vpn_name_valp"}, {"vpws-group-name", "vpws-vpn-name"}};
const std::string two_questions_text =
    "2 questions of the library could not be read because of the name `a <b>`: rules vpws-group-name, vpws-vpn-name may "
    "not have looked at it";

/// An accepted commit without findings.
report::CommitReport accepted() {
  report::CommitReport commit = decided({});
  commit.unreadable = {two_questions};
  return commit;
}

report::CheckReport full_report(const UnreadableName &name) {
  report::CheckReport report;
  report.inputs = {"element.json", "running.xml", "candidate.xml"};
  report.plugin_file = "lib.so";
  report.build_id = "none";
  report.commit = decided({});
  report.commit.unreadable = {name};
  return report;
}

template <typename Writer>
std::string written(Writer write, const report::CommitReport &commit) {
  std::ostringstream out;
  write(out, {commit});
  return out.str();
}

report::CommitReport read_back(const std::string &verdict) {
  return report::read_verdict(nlohmann::ordered_json::parse(verdict), "");
}

TEST(UnreadableNames, questions_are_counted_by_name_and_name_the_rules_of_their_points) {
  const auto names = report::unreadable_names({{"vpn_overflow_valp", "maapi_exists", "/x{a b}", "a b"},
                                               {"vpn_name_valp", "maapi_exists", "/x{c}", "c{"},
                                               {"vpn_name_valp", "maapi_exists", "/y{a b}", "a b"},
                                               {"vpn_name_valp", "maapi_get_elem", "/y{a b}", "a b"}});
  ASSERT_EQ(names.size(), 2u);
  EXPECT_EQ(names[0].name, "a b");
  EXPECT_EQ(names[0].questions, 3u);
  EXPECT_EQ(names[0].points, (std::vector<std::string>{"vpn_overflow_valp", "vpn_name_valp"}));
  std::vector<std::string> rules = names[0].rules;
  std::sort(rules.begin(), rules.end());
  EXPECT_EQ(rules, (std::vector<std::string>{"vpn-limit", "vpws-group-name", "vpws-vpn-name"}));
  EXPECT_EQ(names[1].name, "c{");
  EXPECT_EQ(names[1].questions, 1u);
  EXPECT_TRUE(report::unreadable_names({}).empty());
}

TEST(UnreadableNames, the_text_is_one_line_with_name_and_rules) {
  EXPECT_EQ(to_text(two_questions), two_questions_text);
  EXPECT_EQ(to_text(UnreadableName{"a\n\x1b", 1, {"vpn_overflow_valp"}, {"vpn-limit"}}),
            "1 question of the library could not be read because of the name `a\\n\\x1b`: rule vpn-limit may not have "
            "looked at it");
  EXPECT_EQ(to_text(UnreadableName{"a b", 1, {"new_valp"}, {}}),
            "1 question of the library could not be read because of the name `a b`: rules may not have looked at it");
}

TEST(UnreadableNames, text_has_a_line_below_the_total) {
  std::ostringstream out;
  report::write_verdict(out, full_report(two_questions), report::TextStyle(false));
  EXPECT_NE(out.str().find(" 0 rejected\n" + two_questions_text + "\ndecided by"), std::string::npos) << out.str();
}

TEST(UnreadableNames, many_commits_have_a_line_below_the_commit) {
  std::ostringstream out;
  report::SeriesText(out, report::TextStyle(false)).write({accepted(), 0, ""});
  EXPECT_EQ(out.str(), "night/42: accepted\n" + two_questions_text + "\n");
}

TEST(UnreadableNames, github_has_a_warning) {
  EXPECT_EQ(written(report::write_github, accepted()), "::warning title=night/42::" + two_questions_text + "\n");
}

TEST(UnreadableNames, sarif_has_a_notification) {
  const json log = json::parse(written(report::write_sarif, accepted()));
  const json expected = {{"level", "warning"}, {"message", {{"text", "night/42: " + two_questions_text}}}};
  const json &invocation = log.at("runs").at(0).at("invocations").at(0);
  EXPECT_EQ(invocation.at("toolExecutionNotifications"), json::array({expected}));
  EXPECT_EQ(invocation.at("executionSuccessful"), true);
}

TEST(UnreadableNames, junit_has_a_line_of_output_and_the_case_passes) {
  const CommitFolder folder;
  const auto junit = [](std::ostream &out, const std::vector<report::CommitReport> &commits) {
    report::write_junit(out, commits);
  };
  folder.write("report.xml", written(junit, accepted()));
  EXPECT_EQ(run_reader("read_junit.py", folder.file("report.xml")).output,
            "suite vpnval: tests 1 failures 0 errors 0 skipped 0\n"
            "case vpnval.check night/42\n"
            "  out: " +
                two_questions_text + "\n");
}

TEST(UnreadableNames, json_has_them_and_they_are_read_back) {
  const std::string document = report::verdict_json(full_report(two_questions));
  const auto expected = nlohmann::ordered_json::parse(R"([{"name": "a <b>", "questions": 2, "points": ["vpn_name_valp"],
                                               "rules": ["vpws-group-name", "vpws-vpn-name"]}])");
  EXPECT_EQ(nlohmann::ordered_json::parse(document).at("unreadable"), expected);

  const std::vector<UnreadableName> names = read_back(document).unreadable;
  ASSERT_EQ(names.size(), 1u);
  EXPECT_EQ(names[0].name, two_questions.name);
  EXPECT_EQ(names[0].questions, two_questions.questions);
  EXPECT_EQ(names[0].points, two_questions.points);
  EXPECT_EQ(names[0].rules, two_questions.rules);
}

TEST(UnreadableNames, a_document_without_any_has_no_such_field_and_one_that_is_cut_short_is_refused) {
  report::CheckReport report = full_report(two_questions);
  auto document = json::parse(verdict_json(report));
  document["unreadable"][0].erase("questions");
  EXPECT_THROW(read_back(document.dump()), json::exception);
  report.commit.unreadable.clear();
  EXPECT_FALSE(json::parse(verdict_json(report)).contains("unreadable"));
  EXPECT_TRUE(read_back(verdict_json(report)).unreadable.empty());
}

TEST(UnreadableNames, documents_with_them_fit_the_schema) {
  const CommitFolder folder;
  folder.write("plain", single_document(full_report(two_questions)));
  UnreadableName hostile_name = two_questions;
  hostile_name.name = hostile_text;
  folder.write("hostile", single_document(full_report(hostile_name)));
  const ProcessResult result = run_reader(
      "fits_schema.py", SOURCE_DIR "/docs/verdict.schema.json " + folder.file("plain") + " " + folder.file("hostile"));
  EXPECT_EQ(result.output, "2 documents fit\n");
}

/// The commit is the example's; its text is compared as every example's is.
class HiddenMember : public testing::Test {
 protected:
  static Outcome check(const std::vector<std::string> &options) {
    std::vector<std::string> arguments{"check", SOURCE_DIR "/examples/blank-in-name-hides-static-member"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    std::ostringstream out;
    std::ostringstream err;
    const cli::ExitStatus status = cli::run(arguments, still_environment(out, err, vpnval_file(), plugin_file()));
    return {static_cast<int>(status), out.str(), err.str()};
  }

  const std::string notice = "3 questions of the library could not be read because of the name `a b`: rules ";
};

TEST_F(HiddenMember, is_accepted_with_the_notice_in_every_format) {
  for (const std::string format : {"text", "sarif", "junit", "github"}) {
    const Outcome outcome = check({"--fail-on-warn", "--format", format});
    EXPECT_EQ(outcome.status, 0) << format;
    EXPECT_NE(outcome.out.find(notice), std::string::npos) << outcome.out;
  }
}

TEST_F(HiddenMember, is_handed_on_by_the_process_that_decides_it_alone) {
  for (const std::string format : {"text", "sarif", "junit", "github"}) {
    const Outcome outcome = check({"--jobs", "1", "--format", format});
    EXPECT_EQ(outcome.status, 0) << format;
    EXPECT_NE(outcome.out.find(notice), std::string::npos) << outcome.out;
  }
  const json series = json::parse(check({"--jobs", "1", "--format", "json"}).out);
  EXPECT_EQ(series.at("commits").at(0).at("verdict").at("unreadable").at(0).at("name"), "a b");
}

}  // namespace
