#include "report/suppressions.h"

#include <gtest/gtest.h>

#include "element/input/input_error.h"
#include "tests/cli/sample_findings.h"

namespace {

using report::Suppressions;

const std::chrono::sys_days today{std::chrono::year(2026) / 11 / 22};

const std::string south = "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{*}";
const std::string data = "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/access-interface{*}";

/// What suppresses the finding, as "FILE:LINE: REASON"; empty: nothing.
std::string suppressed(const report::Finding &finding, const std::string &file) {
  std::vector<report::Finding> findings{finding};
  Suppressions suppressions(today);
  suppressions.parse(file, "known.txt");
  suppressions.apply(findings);
  if (!findings[0].suppressed) return "";
  return to_text(findings[0].suppressed->by) + ": " + findings[0].suppressed->reason;
}

TEST(Suppressions, a_line_fits_by_its_rule_and_the_path_of_any_party) {
  const std::string member = "/config/vlan{100}/interface{gigabit-ethernet-1/1/2}";
  EXPECT_EQ(suppressed(same_dot1q(), "access-same-dot1q " + south + " # moves tonight\n"),
            "known.txt:1: moves tonight");
  EXPECT_EQ(suppressed(same_dot1q(), "access-same-dot1q " + data + " # moves tonight"), "known.txt:1: moves tonight");
  EXPECT_EQ(suppressed(uplink_warning(), "member-on-uplink " + member + " # lab"), "known.txt:1: lab");
  EXPECT_EQ(suppressed(uplink_warning(), "access-same-dot1q " + member + " # lab"), "");
  EXPECT_EQ(suppressed(same_dot1q(), "access-same-dot1q /mpls/l2vpn-config # all of it"), "");
}

TEST(Suppressions, the_node_under_validation_counts_where_no_party_is_known) {
  const std::string line = "member-on-uplink /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMember* # lab";
  report::Finding finding = uplink_warning();
  EXPECT_EQ(suppressed(finding, line), "");
  finding = bare(finding);
  EXPECT_EQ(suppressed(finding, line), "known.txt:1: lab");
}

TEST(Suppressions, a_finding_stays_open_while_one_of_its_conflicts_is_not_known) {
  report::Finding finding = same_dot1q();
  finding.parties.push_back(finding.parties[0]);
  finding.parties[2].node.path = "/third";
  finding.conflicts.push_back(finding.conflicts[0]);
  finding.conflicts[1].parties = {1, 2};
  const std::string first = "access-same-dot1q " + south + " # moves tonight\n";
  EXPECT_EQ(suppressed(finding, first), "");
  EXPECT_EQ(suppressed(finding, first + "access-same-dot1q /third # too\n"), "known.txt:1: moves tonight");
  EXPECT_EQ(suppressed(finding, "access-same-dot1q " + data + " # both\n"), "known.txt:1: both");
}

TEST(Suppressions, a_limit_is_known_by_anything_that_it_counts) {
  report::Finding finding = too_many_vpns(6);
  finding.conflicts.push_back(finding.conflicts[0]);
  finding.conflicts[0].parties = {0, 1, 2, 3, 4};
  finding.conflicts[1].parties = {1, 2, 3, 4, 5};
  EXPECT_EQ(suppressed(finding, "vpn-limit " + finding.parties[0].node.path + " # bigger card ordered"),
            "known.txt:1: bigger card ordered");
}

TEST(Suppressions, paths_fit_as_they_are_printed) {
  report::Finding finding = same_dot1q();
  finding.parties[1].node.path = "/a/vpn{\"east\x1b side\"}/b";
  EXPECT_EQ(suppressed(finding, R"(access-same-dot1q /a/vpn{"east\x1b side"}/b # as printed)"),
            "known.txt:1: as printed");
}

TEST(Suppressions, blanks_and_number_signs_are_a_keys_own) {
  report::Finding finding = same_dot1q();
  finding.parties[0].node.path = R"(/a/vpn{"no #1 \"}"})";
  EXPECT_EQ(suppressed(finding,
                       "# what is known\r\n\n \t\n"
                       "\taccess-same-dot1q \t" +
                           finding.parties[0].node.path + "\t #\tline 4 # of four \r\n"),
            "known.txt:4: line 4 # of four");
}

TEST(Suppressions, the_first_line_that_fits_is_the_one_that_is_shown) {
  EXPECT_EQ(suppressed(same_dot1q(), "access-same-dot1q /mpls # no\naccess-same-dot1q " + south +
                                         " # first\naccess-same-dot1q " + data + " # second\n"),
            "known.txt:2: first");
}

TEST(Suppressions, lines_that_fit_nothing_are_told) {
  Suppressions suppressions(today);
  suppressions.parse("access-same-dot1q " + south + " # known\naccess-same-dot1q " + data +
                         " # known, too\nvpn-limit /mpls # long gone\n",
                     "known.txt");
  EXPECT_EQ(suppressions.unused().size(), 3u);
  std::vector<report::Finding> findings{uplink_warning(), same_dot1q()};
  suppressions.apply(findings);
  EXPECT_EQ(suppressions.unused(), std::vector<std::string>{"known.txt:3: vpn-limit /mpls"});
}

TEST(Suppressions, a_line_with_a_date_holds_to_the_end_of_that_day) {
  const std::string line = "access-same-dot1q " + south + " until ";
  EXPECT_EQ(suppressed(same_dot1q(), line + "2026-11-22 # known"), "known.txt:1: known");
  EXPECT_EQ(suppressed(same_dot1q(), line + "2027-01-01 # known"), "known.txt:1: known");
  EXPECT_EQ(suppressed(same_dot1q(), line + "2026-11-21 # known"), "");
}

TEST(Suppressions, a_line_that_is_over_is_told_as_expired_and_not_as_unused) {
  Suppressions suppressions(today);
  suppressions.parse("vpn-limit /mpls until 2026-02-03 # x\nvpn-limit /config until 2026-12-31 # y\n", "known.txt");
  EXPECT_EQ(suppressions.expired(), std::vector<std::string>{"known.txt:1: vpn-limit /mpls, until 2026-02-03"});
  EXPECT_EQ(suppressions.unused(), std::vector<std::string>{"known.txt:2: vpn-limit /config"});
}

TEST(Suppressions, lines_of_several_files_count_together) {
  Suppressions suppressions(today);
  suppressions.parse("vpn-limit /mpls # x\n", "a.txt");
  suppressions.parse("access-same-dot1q " + south + " # y\n", "b.txt");
  std::vector<report::Finding> findings{same_dot1q()};
  suppressions.apply(findings);
  ASSERT_TRUE(findings[0].suppressed);
  EXPECT_EQ(to_text(findings[0].suppressed->by), "b.txt:1");
  EXPECT_EQ(suppressions.unused(), std::vector<std::string>{"a.txt:1: vpn-limit /mpls"});
}

TEST(Suppressions, a_line_that_is_none_is_an_input_error) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"vpn-limits /mpls # x", "there is no rule \"vpn-limits\""},
      {"/mpls vpn-limit # x", "there is no rule \"/mpls\""},
      {"vpn-limit", "\"\" is no path"},
      {"vpn-limit # x", "\"#\" is no path"},
      {"vpn-limit mpls # x", "\"mpls\" is no path"},
      {"vpn-limit /mpls /config # x", "\"/config # x\" follows the path"},
      {"vpn-limit /mpls", "there is no reason"},
      {"vpn-limit /mpls #  ", "there is no reason"},
      {"vpn-limit /mpls{never closed # x", "there is no reason"},
      {"vpn-limit /mpls until # x", "\"#\" is no date"},
      {"vpn-limit /mpls until 2026-02-30 # x", "\"2026-02-30\" is no date"},
      {"vpn-limit /mpls until 26-02-03 # x", "\"26-02-03\" is no date"},
      {"vpn-limit /mpls until 2026-02-03T # x", "\"2026-02-03T\" is no date"},
      {"vpn-limit /mpls until 2026-02-03 x # x", "\"x # x\" follows the path"},
      {"vpn-limit /mpls until 2026-02-03", "there is no reason"},
      {"vpn\x1b-limit /mpls # x", "there is no rule \"vpn\\x1b-limit\""},
  };
  for (const auto &[line, fault] : rows) {
    try {
      Suppressions(today).parse("# first line\n" + line + "\n", "known.txt");
      ADD_FAILURE() << line << " is taken";
    } catch (const element::InputError &error) {
      EXPECT_EQ(error.what(), "known.txt:2: " + fault + "; expected RULE PATH [until YYYY-MM-DD] # REASON");
    }
  }
}

TEST(Suppressions, a_file_that_is_not_there_is_a_file_error) {
  EXPECT_THROW(Suppressions(today).read("/nowhere/known.txt"), element::FileError);
}

}  // namespace
