#include "report/suppressions.h"

#include <gtest/gtest.h>

#include "element/input/input_error.h"
#include "tests/cli/sample_findings.h"

namespace {

using report::Suppressions;

const std::string south = "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{*}";
const std::string data = "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/access-interface{*}";

/// What suppresses the finding, as "FILE:LINE: REASON"; empty: nothing.
std::string suppressed(const report::Finding &finding, const std::string &file) {
  std::vector<report::Finding> findings{finding};
  Suppressions::parse(file, "known.txt").apply(findings);
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
  Suppressions suppressions = Suppressions::parse("access-same-dot1q " + south + " # known\naccess-same-dot1q " + data +
                                                      " # known, too\nvpn-limit /mpls # long gone\n",
                                                  "known.txt");
  EXPECT_EQ(suppressions.unused().size(), 3u);
  std::vector<report::Finding> findings{uplink_warning(), same_dot1q()};
  suppressions.apply(findings);
  EXPECT_EQ(suppressions.unused(), std::vector<std::string>{"known.txt:3: vpn-limit /mpls"});
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
      {"vpn\x1b-limit /mpls # x", "there is no rule \"vpn\\x1b-limit\""},
  };
  for (const auto &[line, fault] : rows) {
    try {
      Suppressions::parse("# first line\n" + line + "\n", "known.txt");
      ADD_FAILURE() << line << " is taken";
    } catch (const element::InputError &error) {
      EXPECT_EQ(error.what(), "known.txt:2: " + fault + "; expected RULE PATH # REASON");
    }
  }
}

TEST(Suppressions, a_file_that_is_not_there_is_a_file_error) {
  EXPECT_THROW(Suppressions::read("/nowhere/known.txt"), element::FileError);
}

}  // namespace
