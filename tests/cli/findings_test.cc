#include "report/findings.h"

#include <gtest/gtest.h>

#include <sstream>

#include "element/input/configuration.h"
#include "report/finding.h"
#include "tests/cli/commit_folder.h"

namespace {

using diagnosis::ChangeStatus;
using report::Finding;

const std::string l2vpn = "/mpls/l2vpn-config/l2vpn/";
const std::string east = l2vpn + "vpws-group{metro}/vpn{east}";
const std::string west = l2vpn + "vpws-group{metro}/vpn{west}";

const char *const running = R"({
  "mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"vpws-group": [{
    "name": "metro",
    "vpn": [
      {"name": "east",
       "access-interface": [{
         "name": "ge-1",
         "dot1q": 100}]}]}]}}}
})";
const char *const candidate = R"({
  "mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"vpws-group": [{
    "name": "metro",

    "vpn": [
      {"name": "east",
       "access-interface": [{
         "name": "ge-1",

         "dot1q": 200}]},
      {"name": "west"}]}]}}}
})";

host::PointVerdict rejection(const std::string &text, const std::string &path = west) {
  return {"vpn_overflow_valp", path, host::Answer::rejected, text};
}

host::PointVerdict warning(const std::string &text, const std::string &path = east) {
  return {"vpn_access_valp", path, host::Answer::warned, text};
}

class Findings : public testing::Test {
 protected:
  element::Path path(const std::string &text) const { return element::parse_path(schema, text); }

  /// What a search tells, though of no rule.
  void find(const host::PointVerdict &verdict, std::vector<diagnosis::Party> parties,
            std::vector<diagnosis::ChangePart> change = {}) {
    diagnosis::Finding finding{verdict, false, std::move(parties), {}, false, {}, 0, 0, true, {tree, tree}, {}, {}, {}};
    finding.conflicts = {{verdict, {}, {}}};
    for (std::size_t i = 0; i < finding.parties.size(); ++i) finding.conflicts[0].parties.push_back(i);
    if (!change.empty()) finding.advice.alternatives = {std::move(change)};
    diagnosis.findings.push_back(std::move(finding));
  }

  std::vector<Finding> make(std::vector<host::PointVerdict> said) const {
    host::Verdict verdict;
    verdict.points = std::move(said);
    report::CommitReport commit;
    report::add_findings(commit, diagnosis, verdict, schema, files(), sources);
    return commit.findings;
  }

  report::InputFiles files() const {
    return {folder.file("element.json"), folder.file("running.json"), folder.file("candidate.json")};
  }

  /// The place without the folder.
  std::string place(const report::FilePlace &at) const {
    const std::string text = to_text(at);
    EXPECT_EQ(text.find(folder.path() + "/"), 0u) << text;
    return text.substr(folder.path().size() + 1);
  }

  CommitFolder folder;
  element::Schema schema;
  report::InputSources sources{parse_configuration_file(schema, running, "running.json").source,
                               parse_configuration_file(schema, candidate, "candidate.json").source};
  element::Tree tree{schema};
  diagnosis::Diagnosis diagnosis;
};

TEST_F(Findings, a_commit_without_a_message_has_none) {
  EXPECT_TRUE(make({{"vpn_name_valp", west, host::Answer::accepted, ""}}).empty());
}

TEST_F(Findings, nodes_have_their_lines_in_the_files_that_hold_them) {
  find(rejection("no"),
       {{ChangeStatus::changed,
         path(east + "/access-interface{ge-1}"),
         "vpws-group metro",
         "east",
         "ge-1",
         "",
         {{ChangeStatus::changed, path(east + "/access-interface{ge-1}/dot1q"), "100", "200"}}},
        {ChangeStatus::unchanged, path(l2vpn + "vpws-group{metro}"), "vpws-group metro", "", "", "", {}}},
       {{ChangeStatus::added, path(west), {}, {}, {}}, {ChangeStatus::removed, path(east), {}, {}, {}}});
  const Finding finding = make({rejection("no")}).at(0);
  const report::PartyReport &party = finding.parties.at(0);
  EXPECT_EQ(party.group, "vpws-group metro");
  EXPECT_EQ(party.vpn, "east");
  EXPECT_EQ(party.interface, "ge-1");
  EXPECT_EQ(party.node.path, east + "/access-interface{ge-1}");
  EXPECT_EQ(party.node.status, report::ChangeStatus::changed);
  EXPECT_EQ(place(party.node.running.value()), "running.json:6");
  EXPECT_EQ(place(party.node.candidate.value()), "candidate.json:7");
  EXPECT_EQ(party.details.at(0).old_value, "100");
  EXPECT_EQ(party.details.at(0).new_value, "200");
  EXPECT_EQ(place(party.details.at(0).running.value()), "running.json:8");
  EXPECT_EQ(place(party.details.at(0).candidate.value()), "candidate.json:10");
  EXPECT_EQ(finding.parties.at(1).node.status, report::ChangeStatus::unchanged);
  EXPECT_EQ(place(finding.parties.at(1).node.running.value()), "running.json:2");

  const std::vector<report::PartReport> &parts = finding.advice.alternatives.at(0);
  EXPECT_EQ(parts.at(0).node.status, report::ChangeStatus::added);
  EXPECT_FALSE(parts.at(0).node.running);
  EXPECT_EQ(place(parts.at(0).node.candidate.value()), "candidate.json:11");
  EXPECT_EQ(parts.at(1).node.status, report::ChangeStatus::removed);
  EXPECT_EQ(place(parts.at(1).node.running.value()), "running.json:5");
  EXPECT_FALSE(parts.at(1).node.candidate);
}

TEST_F(Findings, the_place_to_look_first_is_what_the_commit_does_to_the_first_party_that_the_candidate_holds) {
  const diagnosis::Party left{ChangeStatus::unchanged, path(l2vpn + "vpws-group{metro}"), "", "", "", "", {}};
  const diagnosis::Party added{ChangeStatus::added, path(west), "", "", "", "", {}};
  const diagnosis::Party removed{ChangeStatus::removed, path(east + "/access-interface{ge-1}"), "", "", "", "", {}};
  diagnosis::Party changed{ChangeStatus::changed, path(east), "", "", "", "", {}};
  changed.details = {{ChangeStatus::changed, path(east + "/access-interface{ge-1}/dot1q"), "100", "200"}};
  diagnosis::Party shrunk = changed;
  shrunk.details[0].status = ChangeStatus::removed;
  const diagnosis::ChangePart part{ChangeStatus::added, path(west), {}, {}, {}};
  struct Row {
    std::vector<diagnosis::Party> parties;
    std::vector<diagnosis::ChangePart> change;
    std::string place;
  };
  for (const Row &row : std::vector<Row>{{{added, left}, {}, "candidate.json:11"},
                                         {{changed, left}, {part}, "candidate.json:10"},
                                         {{shrunk, left}, {part}, "candidate.json:6"},
                                         {{removed, changed}, {}, "candidate.json:10"},
                                         {{removed, left}, {part}, "candidate.json:11"},
                                         {{left}, {part}, "candidate.json:11"},
                                         {{left}, {}, "candidate.json:2"}}) {
    diagnosis.findings.clear();
    find(rejection("no", l2vpn + "vpws-group{metro}"), row.parties, row.change);
    EXPECT_EQ(place(make({rejection("no", l2vpn + "vpws-group{metro}")}).at(0).place), row.place);
  }
}

TEST_F(Findings, a_derived_node_has_the_candidates_file_alone) {
  const Finding finding = make({rejection("no", "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable")}).at(0);
  EXPECT_EQ(place(finding.place), "candidate.json");
}

TEST_F(Findings, the_rejection_of_the_device_comes_before_its_warnings_and_what_hides_last) {
  find(rejection("behind"), {});
  find(warning("one"), {});
  find(rejection("no"), {});
  const std::vector<Finding> findings = make({warning("one"), warning("two"), rejection("no")});
  ASSERT_EQ(findings.size(), 4u);
  const std::vector<std::string> messages{"no", "one", "two", "behind"};
  const std::vector<bool> warnings{false, true, true, false};
  const std::vector<bool> from_device{true, true, true, false};
  for (std::size_t i = 0; i < findings.size(); ++i) {
    EXPECT_EQ(findings[i].message, messages[i]);
    EXPECT_EQ(findings[i].is_warning, warnings[i]);
    EXPECT_EQ(findings[i].from_device, from_device[i]);
  }
}

TEST_F(Findings, a_message_that_was_not_looked_into_is_there_without_an_explanation) {
  const Finding finding = make({warning("one")}).at(0);
  EXPECT_EQ(finding.path, east);
  EXPECT_EQ(finding.point, "vpn_access_valp");
  EXPECT_FALSE(finding.is_minimal);
  EXPECT_TRUE(finding.conflicts.empty());
  EXPECT_EQ(place(finding.place), "candidate.json:6");
}

TEST_F(Findings, a_message_that_is_drawn_again_behind_the_devices_is_another_finding) {
  find(warning("one", west), {});
  find(warning("one", west), {});
  const std::vector<Finding> findings = make({warning("one", east)});
  ASSERT_EQ(findings.size(), 2u);
  EXPECT_TRUE(findings[0].from_device);
  EXPECT_EQ(findings[0].path, east);
  EXPECT_FALSE(findings[1].from_device);
  EXPECT_EQ(findings[1].path, west);
}

TEST_F(Findings, messages_have_the_rules_that_the_table_knows) {
  const Finding known =
      make({rejection("Maximum number of VPNs has been exceeded. Attempt to configure 5 of 4 allowed")}).at(0);
  EXPECT_EQ(known.rule, "vpn-limit");
  EXPECT_EQ(make({rejection("no")}).at(0).rule, "");
}

TEST_F(Findings, a_limit_keeps_its_number_and_an_unfinished_search_its_mark) {
  find(rejection("no"), {});
  diagnosis.findings[0].advice.enough = 3;
  diagnosis.findings[0].advice.choices = {{ChangeStatus::added, path(west), {}, {}, {}}};
  diagnosis.findings[0].enough = 4;
  diagnosis.findings[0].enough_at_most = 6;
  diagnosis.findings[0].is_minimal = false;
  const Finding finding = make({rejection("no")}).at(0);
  EXPECT_EQ(finding.enough, 4u);
  EXPECT_EQ(finding.enough_at_most, 6u);
  EXPECT_EQ(finding.advice.enough, 3u);
  EXPECT_EQ(finding.advice.choices.at(0).node.path, west);
  EXPECT_FALSE(finding.is_minimal);
}

TEST_F(Findings, what_makes_the_library_look_is_apart_from_the_parties_and_says_where_to_look) {
  find(rejection("no"), {{ChangeStatus::unchanged, path(east), "", "", "", "", {}}});
  diagnosis.findings[0].triggers = {{ChangeStatus::added, path(west), "vpws-group metro", "west", "", "", {}}};
  diagnosis.findings[0].is_preexisting = true;
  diagnosis.findings[0].conflicts[0].triggers = {0};
  const Finding finding = make({rejection("no")}).at(0);
  EXPECT_TRUE(finding.is_preexisting);
  EXPECT_EQ(finding.triggers.at(0).node.path, west);
  EXPECT_EQ(finding.conflicts.at(0).triggers, std::vector<std::size_t>{0});
  EXPECT_EQ(place(finding.place), "candidate.json:11");
}

TEST_F(Findings, a_message_of_the_device_that_belongs_to_a_finding_told_before_is_not_told_again) {
  find(warning("one"), {});
  diagnosis.findings[0].conflicts.push_back({warning("two"), {}, {}});
  const std::vector<Finding> findings = make({warning("one"), warning("two")});
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(findings[0].conflicts.at(1).message, "two");
}

TEST_F(Findings, with_an_entry_that_is_to_be_taken_back_goes_all_it_holds) {
  find(rejection("no"), {},
       {{ChangeStatus::added, path(east), {}, {}, {}},
        {ChangeStatus::added, path(east + "/access-interface{ge-1}"), {}, {}, {}},
        {ChangeStatus::added, path(west), {}, {}, {}}});
  const auto parts = make({rejection("no")}).at(0).advice.alternatives.at(0);
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(parts[0].node.path, east);
  EXPECT_EQ(parts[1].node.path, west);
}

TEST_F(Findings, a_repair_has_the_line_of_what_it_changes) {
  const std::string dot1q = east + "/access-interface{ge-1}/dot1q";
  find(rejection("no"), {});
  diagnosis.findings[0].repairs = {{diagnosis::RepairKind::free_vlans, path(dot1q), {"202"}, true},
                                   {diagnosis::RepairKind::two_commits, {}, {"2"}, false}};
  const auto repairs = make({rejection("no")}).at(0).repairs;
  EXPECT_EQ(repairs.at(0).path, dot1q);
  EXPECT_EQ(place(repairs.at(0).place.value()), "candidate.json:10");
  EXPECT_EQ(repairs.at(0).values, std::vector<std::string>{"202"});
  EXPECT_TRUE(repairs.at(0).on_all_ports);
  EXPECT_EQ(repairs.at(1).kind, report::RepairKind::two_commits);
  EXPECT_FALSE(repairs.at(1).place);
}

}  // namespace
