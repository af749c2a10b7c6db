#include <gtest/gtest.h>

#include <sstream>

#include "report/ci/junit.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/cli/sample_findings.h"

namespace {

/// What a CI system's reader finds in the report.
std::string read_back(const std::vector<report::CommitReport> &commits, bool fail_on_warn = false) {
  const CommitFolder folder;
  std::ostringstream out;
  report::write_junit(out, commits, fail_on_warn);
  folder.write("report.xml", out.str());
  return run_reader("read_junit.py", folder.file("report.xml")).output;
}

report::Finding suppressed(report::Finding finding) {
  finding.suppressed = report::Suppressed{{"known.txt", 3}, "moves tonight"};
  return finding;
}

report::CommitReport named(const std::string &name, report::CommitReport commit) {
  commit.name = name;
  return commit;
}

const std::string uplink_lines[] = {
    "what it would say next:\n",
    "warning [member-on-uplink]: Some MPLS VPN's have access and uplink interfaces in common.\n",
    "   involved:\n",
    "     + /config/vlan{100}/interface{gigabit-ethernet-1/1/2}: added by this commit (night/42/candidate.xml:40)\n",
    "   to be rid of it: take back + /config/vlan{100}/interface{gigabit-ethernet-1/1/2} (night/42/candidate.xml:40)\n",
};

std::string uplink_text(const std::string &indent) {
  std::string text;
  for (const std::string &line : uplink_lines) text += indent + line;
  return text;
}

TEST(JunitOutput, each_commit_is_a_case_with_its_outcome) {
  report::CommitReport broken;
  broken.name = "broken";
  broken.error = "broken/candidate.xml:7: /mpls: what is wrong";
  EXPECT_EQ(read_back({named("good", decided({})), named("warned", decided({uplink_warning()})),
                       named("known", decided({suppressed(too_many_vpns(5))})), broken}),
            "suite vpnval: tests 4 failures 0 errors 1 skipped 1\n"
            "case vpnval.check good\n"
            "case vpnval.check warned\n" +
                uplink_text("  out: ") +
                "case vpnval.check known\n"
                "  Skipped -: rejected, but every rejection found is suppressed\n"
                "  out: what the device says:\n"
                "  out: rejected [vpn-limit]: Maximum number of VPNs has been exceeded. Attempt to configure 5 of 4 "
                "allowed\n"
                "  out:    suppressed by known.txt:3: moves tonight\n"
                "  out:    the device rejects the commit all the same\n"
                "case vpnval.check broken\n"
                "  Error error: broken/candidate.xml:7: /mpls: what is wrong\n"
                "    broken/candidate.xml:7: /mpls: what is wrong\n");
}

TEST(JunitOutput, the_rejections_of_a_commit_are_one_failure_that_the_first_one_names) {
  report::Finding unknown = bare(same_dot1q());
  unknown.rule.clear();
  unknown.message = "this neighbour is not wanted";
  EXPECT_EQ(
      read_back({decided({unknown, suppressed(same_dot1q()), uplink_warning(), unknown})}),
      "suite vpnval: tests 1 failures 1 errors 0 skipped 0\n"
      "case vpnval.check night/42\n"
      "  Failure vpn_access_valp: this neighbour is not wanted\n"
      "    what the device says:\n"
      "    rejected: this neighbour is not wanted\n"
      "       at /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1} "
      "(night/42/candidate.xml:11)\n"
      "    rejected: this neighbour is not wanted\n"
      "       at /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1} "
      "(night/42/candidate.xml:11)\n"
      "  out: what the device says:\n"
      "  out: rejected [access-same-dot1q]: vpls-group campus vpn data and vpws-group branches vpn south must not be "
      "configured with the same dot1q on interface gigabit-ethernet-1/1/1\n"
      "  out:    suppressed by known.txt:3: moves tonight\n"
      "  out:    the device rejects the commit all the same\n" +
          uplink_text("  out: "));
}

TEST(JunitOutput, a_search_that_ended_early_is_told) {
  report::CommitReport commit = decided({uplink_warning()});
  commit.search.end = report::SearchEnd::time_budget;
  EXPECT_EQ(read_back({commit}), "suite vpnval: tests 1 failures 0 errors 0 skipped 0\ncase vpnval.check night/42\n" +
                                     uplink_text("  out: ") +
                                     "  out: search stopped: budget of 60 s used; there may be further "
                                     "findings; --budget sets the bound\n");
}

TEST(JunitOutput, warnings_fail_where_they_are_to) {
  const report::CommitReport warned = named("warned", decided({uplink_warning()}));
  const std::string failed =
      "case vpnval.check warned\n"
      "  Failure member-on-uplink: Some MPLS VPN's have access and uplink interfaces in common.\n" +
      uplink_text("    ");
  EXPECT_EQ(read_back({named("good", decided({})), warned}, true),
            "suite vpnval: tests 2 failures 1 errors 0 skipped 0\ncase vpnval.check good\n" + failed);
  const std::string both = read_back({decided({same_dot1q(), uplink_warning()})}, true);
  EXPECT_NE(both.find("  Failure access-same-dot1q: "), std::string::npos) << both;
  EXPECT_EQ(both.find("  out: "), std::string::npos) << both;
  EXPECT_EQ(read_back({named("known", decided({suppressed(uplink_warning())}))}, true)
                .find("suite vpnval: tests 1 failures 0 errors 0 skipped 0\n"),
            0u);
}

TEST(JunitOutput, warnings_that_a_search_left_unseen_fail_as_well) {
  report::CommitReport commit = decided({suppressed(uplink_warning())});
  commit.search.end = report::SearchEnd::time_budget;
  EXPECT_NE(read_back({commit}, true).find("  Failure search-stopped: search stopped: budget of 60 s used; "),
            std::string::npos);
}

TEST(JunitOutput, times_are_in_seconds) {
  std::vector<report::CommitReport> commits{decided({}), decided({})};
  commits[0].seconds = 0.0304;
  commits[1].seconds = 61.5;
  std::ostringstream out;
  report::write_junit(out, commits);
  EXPECT_NE(out.str().find(" skipped=\"0\" time=\"61.530\">"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("name=\"night/42\" time=\"0.030\">"), std::string::npos);
  EXPECT_NE(out.str().find("name=\"night/42\" time=\"61.500\">"), std::string::npos);
}

TEST(JunitOutput, what_the_device_would_say_next_stands_apart) {
  report::Finding next = bare(too_many_vpns(5));
  next.from_device = false;
  const std::string text = read_back({decided({bare(same_dot1q()), next})});
  const std::size_t said = text.find("    what the device says:\n    rejected [access-same-dot1q]: ");
  const std::size_t said_next = text.find("    what it would say next:\n    rejected [vpn-limit]: ");
  ASSERT_NE(said, std::string::npos) << text;
  ASSERT_NE(said_next, std::string::npos) << text;
  EXPECT_LT(said, said_next);
}

TEST(JunitOutput, the_advice_for_all_findings_is_a_line) {
  const auto part = [](const report::Finding &finding) { return finding.advice.alternatives[0][0]; };
  report::CommitReport commit = decided({same_dot1q(), uplink_warning()});
  commit.advice.alternatives = {{part(commit.findings[0])}, {part(commit.findings[1])}};
  const std::string one = "+ /config/vlan{100}/interface{gigabit-ethernet-1/1/2} (night/42/candidate.xml:40)";
  const std::string other =
      "+ /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1} "
      "(night/42/candidate.xml:11)";
  const std::string lead = "\n  out: for the commit to be accepted without a warning: take back ";
  EXPECT_TRUE(read_back({commit}).ends_with(lead + "any one of these 2: " + other + "; " + one + "\n"));
  commit.advice.alternatives[0].push_back(part(commit.findings[1]));
  EXPECT_TRUE(read_back({commit}).ends_with(lead + "any one of these 2 sets, the whole of it: 1) " + other + "; " +
                                            one + "; 2) " + one + "\n"));
  commit.advice = too_many_vpns(5).advice;
  EXPECT_NE(read_back({commit}).find(lead + "any 1 of these 5: + /mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{v1}"),
            std::string::npos);
}

TEST(JunitOutput, the_advice_of_the_only_finding_is_told_once) {
  report::CommitReport commit = decided({same_dot1q()});
  commit.advice = commit.findings[0].advice;
  EXPECT_EQ(read_back({commit}).find("for the commit to be accepted"), std::string::npos);
}

TEST(JunitOutput, hostile_texts_leave_a_report_that_reads_back) {
  const std::string printed =
      R"(a"b'c<d>&amp;]]>::error file=x,line=1::y%0A,:\x0d\n\x1b[31mred\x01 [link](https://example.invalid) {0} caf)"
      "\xef\xbf\xbd";
  const std::string text = read_back({named(hostile_text, decided({hostile()}))});
  EXPECT_EQ(
      text.find("suite vpnval: tests 1 failures 1 errors 0 skipped 0\ncase vpnval.check " + printed +
                "\n  Failure access-same-dot1q: " + printed +
                "\n    what the device says:\n    rejected [access-same-dot1q]: " + printed + "\n       involved:\n"),
      0u)
      << text;
}

}  // namespace
