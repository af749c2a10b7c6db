#include "report/text/findings_text.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/cli/sample_findings.h"

namespace {

using report::CommitReport;

std::string text_of(const CommitReport &commit, bool in_colour = false) {
  std::ostringstream out;
  report::write_findings(out, commit.findings, commit.search, report::TextStyle(in_colour));
  return out.str();
}

const std::string same_dot1q_text =
    "1. rejected [access-same-dot1q]: vpls-group campus vpn data and vpws-group branches vpn south must not be "
    "configured with the same dot1q on interface gigabit-ethernet-1/1/1\n"
    "   involved:\n"
    "     + vpws-group branches, vpn south, interface gigabit-ethernet-1/1/1: added by this commit "
    "(night/42/candidate.xml:11)\n"
    "         + dot1q: 210 (night/42/candidate.xml:13)\n"
    "       vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: in the running configuration "
    "(night/42/running.xml:16)\n"
    "           dot1q: 210 (night/42/running.xml:15)\n"
    "   take back:\n"
    "     + /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1}/dot1q: "
    "210 (night/42/candidate.xml:13)\n";

TEST(FindingsText, an_accepted_commit_has_none) { EXPECT_EQ(text_of(decided({})), ""); }

TEST(FindingsText, both_parties_are_shown_with_their_places_and_what_is_to_be_taken_back) {
  CommitReport commit = decided({same_dot1q()});
  commit.search.all_faults = false;
  EXPECT_EQ(text_of(commit), "\nwhat the device says: 1\n\n" + same_dot1q_text +
                                 "\nwhy, and what to do: vpnval explain access-same-dot1q\n"
                                 "what else is wrong, if anything: vpnval check --all-faults\n");
}

TEST(FindingsText, what_hides_behind_the_device_follows) {
  EXPECT_EQ(text_of(decided({same_dot1q(), uplink_warning()})),
            "\nwhat the device says: 1\n\n" + same_dot1q_text +
                "\nhidden behind it: 1\n\n"
                "2. warning [member-on-uplink]: Some MPLS VPN's have access and uplink interfaces in common.\n"
                "   involved:\n"
                "     + /config/vlan{100}/interface{gigabit-ethernet-1/1/2}: added by this commit "
                "(night/42/candidate.xml:40)\n"
                "   to be rid of it, take back:\n"
                "     + /config/vlan{100}/interface{gigabit-ethernet-1/1/2} (night/42/candidate.xml:40)\n"
                "\nwhy, and what to do: vpnval explain RULE, with what stands in brackets\n");
}

TEST(FindingsText, where_nothing_hides_it_says_so) {
  EXPECT_EQ(text_of(decided({same_dot1q()})), "\nwhat the device says: 1\n\n" + same_dot1q_text +
                                                  "\nhidden behind it: nothing, the rest of the commit is accepted\n"
                                                  "\nwhy, and what to do: vpnval explain access-same-dot1q\n");
}

TEST(FindingsText, a_limit_tells_how_many_are_enough_and_long_lists_are_cut) {
  const std::string text = text_of(decided({too_many_vpns(1025)}));
  for (const std::string part :
       {"     + vpls-group campus, vpn v8: added by this commit (night/42/candidate.xml:80)\n"
        "     ... and 1,017 more\n"
        "   take back any 1,021 of these 1,025:\n"
        "     + /mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{v1} (night/42/candidate.xml:10)\n",
        "{v8} (night/42/candidate.xml:80)\n     ... and 1,017 more\n\n"}) {
    EXPECT_NE(text.find(part), std::string::npos) << text;
  }
  EXPECT_NE(text_of(decided({too_many_vpns(10)})).find("... and 2 more\n"), std::string::npos);
  EXPECT_EQ(text_of(decided({too_many_vpns(9)})).find("more\n"), std::string::npos);
}

TEST(FindingsText, what_the_commit_touches_comes_first_among_the_details) {
  report::Finding finding = same_dot1q();
  const report::NodeReport left = finding.parties[1].details[0];
  finding.parties[0].details.insert(finding.parties[0].details.begin(), 10, left);
  const std::string text = text_of(decided({finding}));
  EXPECT_NE(text.find("candidate.xml:11)\n         + dot1q: 210 (night/42/candidate.xml:13)\n           "),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("\n         ... and 3 more\n"), std::string::npos) << text;
}

TEST(FindingsText, a_pseudowire_goes_by_its_neighbour) {
  report::PartyReport party;
  party.node.path = "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/neighbor{192.0.2.2}";
  party.group = "vpws-group branches";
  party.vpn = "south";
  party.neighbor = "192.0.2.2";
  EXPECT_EQ(title_of(party), "vpws-group branches, vpn south, neighbor 192.0.2.2");
  party.node.path = "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/backup-neighbor{192.0.2.2}";
  EXPECT_EQ(title_of(party), "vpws-group branches, vpn south, backup-neighbor 192.0.2.2");
}

TEST(FindingsText, the_parts_of_a_change_stand_under_the_number_that_is_to_go) {
  report::Finding finding = same_dot1q();
  finding.change.push_back(finding.parties[1].node);
  EXPECT_NE(text_of(decided({finding})).find("   take back these 2:\n"), std::string::npos);
  finding.enough = 1;
  EXPECT_NE(text_of(decided({finding})).find("   take back any 1 of these 2:\n"), std::string::npos);
}

TEST(FindingsText, an_entry_that_was_added_for_a_part_alone_is_not_listed_beside_it) {
  report::Finding finding = same_dot1q();
  finding.change.insert(finding.change.begin(), finding.prerequisites[0]);
  EXPECT_NE(text_of(decided({finding})).find(same_dot1q_text), std::string::npos);
}

TEST(FindingsText, each_standing_has_its_mark_its_words_and_its_file) {
  report::Finding finding = same_dot1q();
  report::NodeReport &node = finding.parties[1].node;
  report::NodeReport &detail = finding.parties[1].details[0];
  const auto party = [&](report::ChangeStatus status) {
    node.status = status;
    detail.status = status;
    detail.old_value = "210";
    detail.new_value = "211";
    const std::string text = text_of(decided({finding}));
    const std::size_t begin = text.find("     ", text.find("candidate.xml:13)"));
    return text.substr(begin, text.find("   take back") - begin);
  };
  const std::string title = "vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: ";
  EXPECT_EQ(party(report::ChangeStatus::changed), "     ~ " + title +
                                                      "changed by this commit (night/42/candidate.xml:36)\n" +
                                                      "         ~ dot1q: 210 -> 211 (night/42/candidate.xml:35)\n");
  EXPECT_EQ(party(report::ChangeStatus::removed), "     - " + title +
                                                      "removed by this commit (night/42/running.xml:16)\n" +
                                                      "         - dot1q: 210 -> 211 (night/42/running.xml:15)\n");
  EXPECT_EQ(party(report::ChangeStatus::unchanged), "       " + title +
                                                        "in the running configuration (night/42/running.xml:16)\n" +
                                                        "           dot1q: 210 (night/42/running.xml:15)\n");
}

TEST(FindingsText, a_bound_that_ended_the_search_is_told_at_the_finding_and_at_the_end) {
  CommitReport commit = decided({same_dot1q()});
  commit.findings[0].complete = false;
  commit.search.end = report::SearchEnd::call_budget;
  EXPECT_EQ(text_of(commit), "\nwhat the device says: 1\n\n" + same_dot1q_text +
                                 "   the search ended before it was sure that nothing smaller draws this message\n"
                                 "\nsearch stopped: budget of 20,000 library calls used; there may be "
                                 "further faults, and less than is listed may draw a message; --budget sets the bound\n"
                                 "\nwhy, and what to do: vpnval explain access-same-dot1q\n");
  commit.search.end = report::SearchEnd::time_budget;
  commit.search.all_faults = false;
  EXPECT_NE(text_of(commit).find("\nsearch stopped: budget of 60 s used; less than is listed may draw the "
                                 "message; --budget sets the bound\n"),
            std::string::npos);
  commit.search.end = report::SearchEnd::contract_violation;
  commit.search.contract_violation = "vpn_access_valp: an exception left the call: out of range";
  EXPECT_NE(text_of(commit).find("\nsearch stopped: the library broke its contract on a smaller commit: "
                                 "vpn_access_valp: an exception left the call: out of range; there may be further "
                                 "faults\n"),
            std::string::npos);
}

TEST(FindingsText, a_fault_of_the_running_configuration_is_told_as_such) {
  CommitReport commit = decided({same_dot1q()});
  commit.findings[0].in_running = true;
  EXPECT_NE(
      text_of(commit).find("\n   the running configuration has this fault: mend it there, or take back what makes "
                           "the device look at it\n   take back:\n"),
      std::string::npos);
}

TEST(FindingsText, a_message_that_the_search_did_not_come_to_has_its_node_alone) {
  CommitReport commit = decided({same_dot1q()});
  commit.findings[0].parties.clear();
  commit.findings[0].change.clear();
  EXPECT_NE(text_of(commit).find("on interface gigabit-ethernet-1/1/1\n"
                                 "   at /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/"
                                 "access-interface{gigabit-ethernet-1/1/1} (night/42/candidate.xml:11)\n\n"),
            std::string::npos);
}

TEST(FindingsText, without_a_search_the_verdict_stands_alone) {
  CommitReport commit = decided({same_dot1q()});
  commit.search.end = report::SearchEnd::call_budget;
  commit.search.budget_calls = 0;
  EXPECT_EQ(text_of(commit), "");
  commit.search.budget_calls = 20000;
  commit.search.budget_seconds = 0;
  EXPECT_EQ(text_of(commit), "");
}

TEST(FindingsText, what_is_suppressed_is_shown_with_the_line_that_suppresses_it) {
  CommitReport commit = decided({same_dot1q(), uplink_warning()});
  for (report::Finding &finding : commit.findings)
    finding.suppressed = report::Suppressed{{"known.txt", 3}, "moves tonight"};
  const std::string expected =
      "\nwhat the device says: 1\n\n"
      "1. rejected [access-same-dot1q]: vpls-group campus vpn data and vpws-group branches vpn south must not be "
      "configured with the same dot1q on interface gigabit-ethernet-1/1/1\n"
      "   suppressed by known.txt:3: moves tonight\n"
      "   the device rejects the commit all the same\n"
      "\nhidden behind it: 1\n\n"
      "2. warning [member-on-uplink]: Some MPLS VPN's have access and uplink interfaces in common.\n"
      "   suppressed by known.txt:3: moves tonight\n";
  EXPECT_EQ(text_of(commit), expected + "\nwhy, and what to do: vpnval explain RULE, with what stands in brackets\n");
  commit.search.budget_calls = 0;
  EXPECT_EQ(text_of(commit), expected);
}

TEST(FindingsText, a_message_without_a_rule_has_no_page) {
  CommitReport commit = decided({same_dot1q()});
  commit.findings[0].rule.clear();
  const std::string text = text_of(commit);
  EXPECT_NE(text.find("\n1. rejected: vpls-group campus"), std::string::npos) << text;
  EXPECT_EQ(text.find("explain"), std::string::npos) << text;
}

TEST(FindingsText, names_steer_no_terminal) {
  const std::string text = text_of(decided({hostile()}));
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_EQ(text.find('\r'), std::string::npos);
  EXPECT_NE(
      text.find(R"(rejected [access-same-dot1q]: a"b'c<d>&amp;]]>::error file=x,line=1::y%0A,:\x0d\n\x1b[31mred\x01)"),
      std::string::npos)
      << text;
}

TEST(FindingsText, colour_sets_off_messages_and_marks) {
  const std::string text = text_of(decided({same_dot1q(), uplink_warning()}), true);
  for (const std::string part :
       {"1. \x1b[1;31mrejected\x1b[0m [access-same-dot1q]: \x1b[1mvpls-group campus vpn data and",
        "on interface gigabit-ethernet-1/1/1\x1b[0m\n", "     \x1b[32m+\x1b[0m vpws-group branches",
        "         \x1b[32m+\x1b[0m dot1q: 210", "2. \x1b[1;33mwarning\x1b[0m [member-on-uplink]: \x1b[1mSome"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " is missing from:\n" << text;
  }
}

}  // namespace
