#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "report/ci/github.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/cli/sample_findings.h"

namespace {

std::string written(const std::vector<report::CommitReport> &commits) {
  std::ostringstream out;
  report::write_github(out, commits);
  return out.str();
}

/// What a runner finds in the commands.
std::string read_back(const std::vector<report::CommitReport> &commits) {
  const CommitFolder folder;
  folder.write("commands", written(commits));
  return run_reader("read_github.py", folder.file("commands")).output;
}

TEST(GithubOutput, each_finding_is_an_annotation_at_its_place) {
  EXPECT_EQ(
      read_back({decided({same_dot1q(), uplink_warning()})}),
      "error\n"
      "  file = 'night/42/candidate.xml'\n"
      "  line = '11'\n"
      "  title = 'access-same-dot1q (the device says)'\n"
      "  | 'vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same "
      "dot1q on interface gigabit-ethernet-1/1/1'\n"
      "  | '   involved:'\n"
      "  | '     + vpws-group branches, vpn south, interface gigabit-ethernet-1/1/1: added by this commit, dot1q 210 "
      "(night/42/candidate.xml:11)'\n"
      "  | '       vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: in the running configuration, dot1q 210 "
      "(night/42/running.xml:16)'\n"
      "  | '   to do: take back + /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/"
      "access-interface{gigabit-ethernet-1/1/1} (night/42/candidate.xml:11)'\n"
      "warning\n"
      "  file = 'night/42/candidate.xml'\n"
      "  line = '40'\n"
      "  title = 'member-on-uplink (it would say next)'\n"
      "  | \"Some MPLS VPN's have access and uplink interfaces in common.\"\n"
      "  | '   involved:'\n"
      "  | '     + /config/vlan{100}/interface{gigabit-ethernet-1/1/2}: added by this commit "
      "(night/42/candidate.xml:40)'\n"
      "  | '   to be rid of it: take back + /config/vlan{100}/interface{gigabit-ethernet-1/1/2} (night/42/candidate.xml:40)'\n");
}

TEST(GithubOutput, a_command_is_one_line_and_escapes_what_ends_its_parts) {
  report::Finding finding = bare(same_dot1q());
  finding.rule.clear();
  finding.message = "100% of: a, b";
  finding.path = "/a";
  finding.place = {"50%,\n:c.xml", 0};
  EXPECT_EQ(
      written({decided({finding})}),
      "::error file=50%25%2C%0A%3Ac.xml,title=vpn_access_valp (the device says)::100%25 of: a, b%0A   at /a (50%25,\\n:c.xml)\n");
}

TEST(GithubOutput, what_is_suppressed_is_no_annotation) {
  report::Finding known = same_dot1q();
  known.suppressed = report::Suppressed{{"known.txt", 3}, "moves tonight"};
  EXPECT_EQ(written({decided({known})}), "");
  EXPECT_EQ(written({decided({})}), "");
}

TEST(GithubOutput, a_commit_that_could_not_be_decided_is_an_error) {
  report::CommitReport broken;
  broken.name = "night/43";
  broken.error = "night/43/candidate.xml:7: /mpls: what is wrong";
  EXPECT_EQ(written({broken}), "::error title=night/43::night/43/candidate.xml:7: /mpls: what is wrong\n");
  broken.error_place = {"night/43/candidate.xml", 7};
  EXPECT_EQ(
      written({broken}),
      "::error file=night/43/candidate.xml,line=7,title=night/43::night/43/candidate.xml:7: /mpls: what is wrong\n");
}

TEST(GithubOutput, a_search_that_ended_early_is_a_notice) {
  report::CommitReport commit = decided({});
  commit.search.end = report::SearchEnd::call_budget;
  EXPECT_EQ(written({commit}),
            "::notice title=night/42::search stopped: budget of 20,000 library calls used; there may "
            "be further findings; --budget sets the bound\n");
}

TEST(GithubOutput, the_advice_for_all_findings_is_a_notice) {
  report::CommitReport commit = decided({same_dot1q(), uplink_warning()});
  commit.advice.alternatives = {
      {commit.findings[0].advice.alternatives[0][0], commit.findings[1].advice.alternatives[0][0]}};
  const std::string notice =
      "::notice title=night/42::for the commit to be accepted without a warning: take back these 2: + "
      "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1} "
      "(night/42/candidate.xml:11); + /config/vlan{100}/interface{gigabit-ethernet-1/1/2} "
      "(night/42/candidate.xml:40)\n";
  EXPECT_TRUE(written({commit}).ends_with(notice)) << written({commit});
}

TEST(GithubOutput, hostile_texts_make_no_command_of_their_own) {
  const std::string commands = written({decided({hostile()})});
  EXPECT_EQ(std::count(commands.begin(), commands.end(), '\n'), 1);
  const std::string text = read_back({decided({hostile()})});
  const std::string printed =
      R"(a"b\'c<d>&amp;]]>::error file=x,line=1::y%0A,:\\x0d\\n\\x1b[31mred\\x01 [link](https://example.invalid) {0} caf)"
      "\xef\xbf\xbd";
  EXPECT_NE(text.find("\n  title = 'access-same-dot1q (the device says)'\n  | '" + printed + "'\n"), std::string::npos)
      << text;
}

}  // namespace
