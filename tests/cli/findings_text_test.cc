#include "report/text/findings_text.h"

#include <gtest/gtest.h>

#include <sstream>

#include "rules/rule.h"
#include "tests/cli/sample_findings.h"

namespace {

using report::CommitReport;

std::string text_of(const CommitReport &commit, bool in_colour = false) {
  std::ostringstream out;
  report::write_findings(out, commit, report::TextStyle(in_colour));
  return out.str();
}

const std::string same_dot1q_text =
    "1. rejected [access-same-dot1q]: vpls-group campus vpn data and vpws-group branches vpn south must not be "
    "configured with the same dot1q on interface gigabit-ethernet-1/1/1\n"
    "   involved:\n"
    "     + vpws-group branches, vpn south, interface gigabit-ethernet-1/1/1: added by this commit, dot1q 210 "
    "(night/42/candidate.xml:11)\n"
    "       vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: in the running configuration, dot1q 210 "
    "(night/42/running.xml:16)\n"
    "   to do: take back + "
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1} "
    "(night/42/candidate.xml:11)\n";

report::PartReport part(const std::string &path, report::ChangeStatus status, std::size_t line) {
  report::PartReport part;
  part.node.path = path;
  part.node.status = status;
  (status == report::ChangeStatus::removed ? part.node.running : part.node.candidate) = report::FilePlace{"c", line};
  return part;
}

TEST(FindingsText, an_accepted_commit_has_none) { EXPECT_EQ(text_of(decided({})), ""); }

TEST(FindingsText, both_parties_are_shown_with_their_places_and_what_is_to_be_taken_back) {
  CommitReport commit = decided({same_dot1q()});
  commit.search.all_faults = false;
  EXPECT_EQ(text_of(commit), "\nwhat the device says: 1\n\n" + same_dot1q_text +
                                 "\nwhy: vpnval explain access-same-dot1q\n"
                                 "what else is wrong, if anything: vpnval check --all-faults night/42\n");
}

TEST(FindingsText, what_the_device_would_say_next_follows) {
  CommitReport commit = decided({same_dot1q(), uplink_warning()});
  commit.advice.alternatives = {
      {commit.findings[0].advice.alternatives[0][0], part("/b", report::ChangeStatus::removed, 3)}};
  EXPECT_EQ(text_of(commit),
            "\nwhat the device says: 1\n\n" + same_dot1q_text +
                "\nwhat it would say next: 1\n\n"
                "2. warning [member-on-uplink]: Some MPLS VPN's have access and uplink interfaces in common.\n"
                "   involved:\n"
                "     + /config/vlan{100}/interface{gigabit-ethernet-1/1/2}: added by this commit "
                "(night/42/candidate.xml:40)\n"
                "   to be rid of it: take back + /config/vlan{100}/interface{gigabit-ethernet-1/1/2} "
                "(night/42/candidate.xml:40)\n"
                "\nfor the commit to be accepted without a warning: take back these 2:\n"
                "     + /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/"
                "access-interface{gigabit-ethernet-1/1/1} (night/42/candidate.xml:11)\n"
                "     - /b (c:3)\n"
                "\nnothing else is wrong\n"
                "\nwhy: vpnval explain access-same-dot1q member-on-uplink\n");
}

TEST(FindingsText, that_nothing_else_is_wrong_is_said_only_where_it_is_proven) {
  CommitReport commit = decided({same_dot1q()});
  commit.advice = commit.findings[0].advice;
  const std::string begin = "\nwhat the device says: 1\n\n" + same_dot1q_text;
  const std::string end = "\nwhy: vpnval explain access-same-dot1q\n";
  EXPECT_EQ(text_of(commit), begin + "\nnothing else is wrong\n" + end);
  commit.search.unproven_rules = {"vpn-limit", "pw-id-moved"};
  EXPECT_EQ(text_of(commit),
            begin + "\nnot everything was looked at: there may be further findings of vpn-limit, pw-id-moved\n" + end);
  commit.search.unproven_rules.clear();
  for (const rules::Rule &rule : rules::all_rules()) commit.search.unproven_rules.push_back(rule.id);
  EXPECT_EQ(text_of(commit), begin + "\nnot everything was looked at: there may be further findings\n" + end);
}

// What is involved is cut; what is to be done is told as far as it must be done.
TEST(FindingsText, a_limit_tells_how_many_are_enough_and_long_lists_are_cut) {
  const std::string text = text_of(decided({too_many_vpns(1025)}));
  for (const std::string wanted :
       {"     + vpls-group campus, vpn v8: added by this commit (night/42/candidate.xml:80)\n"
        "     ... and 1,017 more\n"
        "   to do: take back any 1,021 of these 1,025:\n"
        "     + /mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{v1} (night/42/candidate.xml:10)\n",
        "{v1021} (night/42/candidate.xml:10210)\n     ... and 4 more\n\n"}) {
    EXPECT_NE(text.find(wanted), std::string::npos) << text;
  }
  EXPECT_NE(text_of(decided({too_many_vpns(10)})).find("... and 2 more\n"), std::string::npos);
  EXPECT_EQ(text_of(decided({too_many_vpns(9)})).find("more\n"), std::string::npos);
}

TEST(FindingsText, what_the_commit_touches_comes_first_among_the_details) {
  report::Finding finding = same_dot1q();
  const report::NodeReport left = finding.parties[1].details[0];
  finding.parties[0].details.insert(finding.parties[0].details.begin(), 10, left);
  finding.parties[0].node.status = report::ChangeStatus::changed;
  const std::string text = text_of(decided({finding}));
  EXPECT_NE(text.find(": changed by this commit, + dot1q 210, vpls-group{campus}/vpn{data}/bridge-domain/dot1q 210, "),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("dot1q 210 and 3 more (night/42/candidate.xml:13)\n"), std::string::npos) << text;
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

/// What is to be done, as the text says it.
std::string to_do(report::AdviceReport advice) {
  report::Finding finding = same_dot1q();
  finding.advice = std::move(advice);
  const std::string text = text_of(decided({finding}));
  const std::size_t begin = text.find("   to do:");
  return text.substr(begin, text.find("\n\n", begin) + 1 - begin);
}

TEST(FindingsText, what_to_do_is_a_line_or_a_list_of_which_all_any_one_or_so_many_go) {
  const report::PartReport a = part("/a", report::ChangeStatus::added, 1);
  const report::PartReport b = part("/b", report::ChangeStatus::removed, 2);
  const report::PartReport c = part("/c", report::ChangeStatus::added, 3);
  report::AdviceReport limit;
  limit.enough = 1;
  limit.choices = {a, c};
  for (const auto &[advice, text] : std::vector<std::pair<report::AdviceReport, std::string>>{
           {{{{a}}, 0, {}, true, true}, " take back + /a (c:1)\n"},
           {{{{a, b}}, 0, {}, true, true}, " take back these 2:\n     + /a (c:1)\n     - /b (c:2)\n"},
           {{{{a}, {c}}, 0, {}, true, true}, " take back any one of these 2:\n     + /a (c:1)\n     + /c (c:3)\n"},
           {{{{a, b}, {a, c}}, 0, {}, true, true},
            " take back any one of these 2 sets, the whole of it:\n"
            "     1) + /a (c:1)\n        - /b (c:2)\n     2) + /a (c:1)\n        + /c (c:3)\n"},
           {limit, " take back any 1 of these 2:\n     + /a (c:1)\n     + /c (c:3)\n"},
           {{}, " no part of the change was found that helps when it is taken back\n"},
           {{{}, 0, {}, false, false}, " the search was ended before it found what to take back; see --budget\n"}}) {
    EXPECT_EQ(to_do(advice), "   to do:" + text);
  }
}

TEST(FindingsText, changes_in_place_are_taken_back_leaf_by_leaf) {
  report::PartReport changed = part("/a/vpn{x}", report::ChangeStatus::changed, 1);
  changed.details = {part("/a/vpn{x}/dot1q", report::ChangeStatus::changed, 2).node};
  changed.details[0].old_value = "7";
  changed.details[0].new_value = "8";
  report::AdviceReport advice;
  advice.alternatives = {{changed}};
  EXPECT_EQ(to_do(advice), "   to do: take back ~ /a/vpn{x}/dot1q: 7 -> 8 (c:2)\n");
  advice.alternatives[0][0].details.push_back(
      part("/a/vpn{x}/dot1q-range{1 5}", report::ChangeStatus::removed, 3).node);
  EXPECT_EQ(to_do(advice), "   to do: take back ~ /a/vpn{x}: ~ dot1q 7 -> 8, - dot1q-range{1 5} (c:2)\n");
}

TEST(FindingsText, a_repair_is_told_after_what_can_be_taken_back) {
  report::Finding finding = same_dot1q();
  const report::FilePlace place{"c", 5};
  finding.repairs = {
      {report::RepairKind::free_vlans, "/a/dot1q", place, {"8", "6", "9"}, false},
      {report::RepairKind::free_vlans, "/a/dot1q", place, {"9"}, true},
      {report::RepairKind::free_pw_ids, "/a/pw-id", place, {"7"}, false},
      {report::RepairKind::interface_name, "/a/interface{ge1}", std::nullopt, {"ge-1", "ge-2"}, false},
      {report::RepairKind::two_commits, "", std::nullopt, {"2"}, false, "vpnval plan night/42 -o steps"}};
  EXPECT_NE(text_of(decided({finding}))
                .find("(night/42/candidate.xml:11)\n"
                      "      or: change /a/dot1q (c:5) to what is free on this port: 8, 6 or 9\n"
                      "      or: change /a/dot1q (c:5) to what is free on every port of the VPN: 9\n"
                      "      or: change /a/pw-id (c:5) to a pw-id that is free towards this neighbour: 7\n"
                      "      or: rename /a/interface{ge1} to an interface that the element has: ge-1 or ge-2\n"
                      "      or: make 2 commits of it, one after the other: vpnval plan night/42 -o steps\n"),
            std::string::npos)
      << text_of(decided({finding}));
}

TEST(FindingsText, conflicts_of_one_finding_are_told_by_the_numbers_of_their_parties) {
  report::Finding finding = same_dot1q();
  finding.parties.push_back(finding.parties[0]);
  finding.conflicts.push_back(finding.conflicts[0]);
  finding.conflicts[1].parties = {2, 1};
  const std::string text = text_of(decided({finding}));
  EXPECT_NE(text.find("\n     1) + vpws-group branches, vpn south"), std::string::npos) << text;
  EXPECT_NE(text.find("\n     3) + vpws-group branches, vpn south"), std::string::npos) << text;
  EXPECT_NE(text.find("\n   in conflict: 1, 2; 2, 3\n"), std::string::npos) << text;
  for (report::ConflictReport &conflict : finding.conflicts) conflict.parties.resize(1);
  EXPECT_EQ(text_of(decided({finding})).find("in conflict"), std::string::npos) << "each party draws it alone";
}

TEST(FindingsText, each_status_has_its_mark_its_words_and_its_file) {
  report::Finding finding = same_dot1q();
  report::NodeReport &node = finding.parties[1].node;
  report::NodeReport &detail = finding.parties[1].details[0];
  const auto party = [&](report::ChangeStatus status) {
    node.status = status;
    detail.status = status;
    detail.old_value = "210";
    detail.new_value = "211";
    const std::string text = text_of(decided({finding}));
    const std::size_t begin = text.find("     ", text.find("candidate.xml:11)"));
    return text.substr(begin, text.find("   to do") - begin);
  };
  const std::string title = "vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: ";
  EXPECT_EQ(party(report::ChangeStatus::changed),
            "     ~ " + title + "changed by this commit, ~ dot1q 210 -> 211 (night/42/candidate.xml:35)\n");
  EXPECT_EQ(party(report::ChangeStatus::removed),
            "     - " + title + "removed by this commit, dot1q 210 -> 211 (night/42/running.xml:16)\n");
  EXPECT_EQ(party(report::ChangeStatus::unchanged),
            "       " + title + "in the running configuration, dot1q 210 (night/42/running.xml:16)\n");
}

TEST(FindingsText, what_ended_the_search_is_told_at_the_finding_and_at_the_end) {
  CommitReport commit = decided({same_dot1q()});
  commit.findings[0].is_minimal = false;
  commit.search.end = report::SearchEnd::call_budget;
  EXPECT_EQ(text_of(commit), "\nwhat the device says: 1\n\n" + same_dot1q_text +
                                 "   the search ended before it was sure that every party is needed\n"
                                 "\nsearch stopped: budget of 20,000 library calls used; there may be further "
                                 "findings; --budget sets the bound\n"
                                 "\nwhy: vpnval explain access-same-dot1q\n");
  const auto has = [&commit](const std::string &line) {
    const std::string text = text_of(commit);
    EXPECT_NE(text.find("\n" + line + "\n"), std::string::npos) << text;
  };
  commit.search.end = report::SearchEnd::complete;
  commit.search.has_all_repairs = false;
  has("search stopped: not every value that may be changed was asked about");
  commit.search.end = report::SearchEnd::interrupted;
  commit.search.unproven_rules = {"vpn-limit"};
  has("search stopped: interrupted; there may be further findings of vpn-limit");
  commit.search.end = report::SearchEnd::time_budget;
  commit.search.all_faults = false;
  has("search stopped: budget of 60 s used; --budget sets the bound");
  commit.search.end = report::SearchEnd::contract_violation;
  commit.search.contract_violation = "vpn_access_valp: an exception left the call: out of range";
  has("search stopped: the library broke its contract on a smaller commit: vpn_access_valp: an exception left the "
      "call: out of range");
}

TEST(FindingsText, a_fault_of_the_running_configuration_is_told_as_such) {
  CommitReport commit = decided({in_force(same_dot1q())});
  EXPECT_NE(
      text_of(commit).find("\n   the running configuration has this fault\n"
                           "   makes the library look:\n"
                           "     + vpws-group branches, vpn new: added by this commit (night/42/candidate.xml:30)\n"
                           "   to do: mend the fault in the running configuration first\n"
                           "      or: take back + /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{new} "
                           "(night/42/candidate.xml:30)\n"),
      std::string::npos)
      << text_of(commit);
}

TEST(FindingsText, conflicts_that_differ_in_their_triggers_alone_are_told_once) {
  report::Finding finding = in_force(same_dot1q());
  finding.triggers.push_back(finding.triggers[0]);
  finding.conflicts.push_back(finding.conflicts[0]);
  finding.conflicts[1].triggers = {1};
  EXPECT_EQ(text_of(decided({finding})).find("in conflict"), std::string::npos);
}

TEST(FindingsText, a_message_that_the_search_did_not_come_to_has_its_node_alone) {
  EXPECT_NE(text_of(decided({bare(same_dot1q())}))
                .find("on interface gigabit-ethernet-1/1/1\n"
                      "   at /mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/"
                      "access-interface{gigabit-ethernet-1/1/1} (night/42/candidate.xml:11)\n\n"),
            std::string::npos);
}

TEST(FindingsText, without_a_search_findings_have_their_rules_and_others_are_left_to_the_verdict) {
  report::Finding unknown = bare(same_dot1q());
  unknown.rule.clear();
  CommitReport commit = decided({bare(same_dot1q()), unknown});
  commit.search.end = report::SearchEnd::call_budget;
  commit.search.budget_calls = 0;
  const std::string text = text_of(commit);
  EXPECT_TRUE(text.starts_with("\nwhat the device says: 1\n\n1. rejected [access-same-dot1q]: ")) << text;
  EXPECT_NE(text.find("\nwhy: vpnval explain access-same-dot1q\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("search stopped"), std::string::npos) << text;
  commit.search.budget_calls = 20000;
  commit.search.budget_seconds = 0;
  EXPECT_EQ(text_of(commit), text);
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
      "\nwhat it would say next: 1\n\n"
      "2. warning [member-on-uplink]: Some MPLS VPN's have access and uplink interfaces in common.\n"
      "   suppressed by known.txt:3: moves tonight\n";
  EXPECT_EQ(text_of(commit),
            expected + "\nnothing else is wrong\n\nwhy: vpnval explain access-same-dot1q member-on-uplink\n");
  commit.search.budget_calls = 0;
  EXPECT_EQ(text_of(commit), expected + "\nwhy: vpnval explain access-same-dot1q member-on-uplink\n");
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
        "take back \x1b[32m+\x1b[0m /mpls", "2. \x1b[1;33mwarning\x1b[0m [member-on-uplink]: \x1b[1mSome"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " is missing from:\n" << text;
  }
}

}  // namespace
