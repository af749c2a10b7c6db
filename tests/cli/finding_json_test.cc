#include "report/json/finding_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "report/json/advice_json.h"
#include "report/json/series_json.h"
#include "report/json/verdict_json.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/cli/sample_findings.h"
#include "tests/support/build_under_test.h"

namespace {

/// A report with everything that one can hold.
report::CheckReport full_report() {
  report::CheckReport report;
  report.inputs = {"element.json", "running.xml", "candidate.xml"};
  report.plugin_file = "lib.so";
  report.build_id = "none";
  report.verdict.decision = host::Decision::rejected;
  report.commit.findings = {same_dot1q(), uplink_warning(), too_many_vpns(6)};
  report.commit.findings[1].suppressed = report::Suppressed{{"known.txt", 3}, "the uplink moves next week"};
  report.commit.findings[2].is_minimal = false;
  report.commit.findings[2].enough_at_most = 3;
  report.commit.findings.push_back(in_force(same_dot1q()));
  report::Finding &last = report.commit.findings[3];
  last.advice.alternatives[0][0].details = {last.parties[0].details[0], last.parties[1].details[0]};
  last.advice.has_all_alternatives = false;
  last.repairs = {{report::RepairKind::free_vlans, last.path + "/dot1q", last.place, {"211", "209"}, true},
                  {report::RepairKind::free_pw_ids, last.path, std::nullopt, {"7", "8"}, false},
                  {report::RepairKind::interface_name, last.path, last.place, {"ge-1"}, false},
                  {report::RepairKind::two_commits, "", std::nullopt, {"2"}, false, "vpnval plan a -o b"}};
  report.commit.advice.alternatives = {{{last.parties[0].node, {}}, {last.triggers[0].node, {}}}};
  report.commit.search = {.all_faults = true,
                          .calls = 500,
                          .budget_calls = 500,
                          .budget_seconds = 2.5,
                          .end = report::SearchEnd::call_budget,
                          .unproven_rules = {"vpn-limit"},
                          .contract_violation = ""};
  report.commit.unused_suppressions = {"known.txt:4: vpn-limit /mpls"};
  return report;
}

std::string written(const report::CheckReport &report) { return report::verdict_json(report); }

report::CommitReport read_back(const std::string &verdict, const std::string &name) {
  return report::read_verdict(nlohmann::ordered_json::parse(verdict), name);
}

TEST(FindingJson, what_is_read_back_is_what_was_written) {
  const report::CheckReport report = full_report();
  const report::CommitReport commit = read_back(written(report), "night/42");
  EXPECT_EQ(commit.name, "night/42");
  EXPECT_EQ(commit.decision, host::Decision::rejected);
  EXPECT_EQ(commit.error, "");
  ASSERT_EQ(commit.findings.size(), 4u);
  EXPECT_EQ(report::findings_json(commit.findings), report::findings_json(report.commit.findings));
  EXPECT_EQ(report::advice_json(commit.advice), report::advice_json(report.commit.advice));
  EXPECT_EQ(report::search_json(commit.search), report::search_json(report.commit.search));
  EXPECT_EQ(commit.unused_suppressions, report.commit.unused_suppressions);
}

TEST(FindingJson, a_finding_shows_rule_message_parties_and_places) {
  const auto expected = nlohmann::ordered_json::parse(R"({
    "rule": "member-on-uplink", "severity": "warning", "from-device": false,
    "point": "vlm_memb_valp", "path": "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable",
    "message": "Some MPLS VPN's have access and uplink interfaces in common.",
    "place": {"file": "night/42/candidate.xml", "line": 40},
    "parties": [{"status": "added", "path": "/config/vlan{100}/interface{gigabit-ethernet-1/1/2}",
                 "candidate": {"file": "night/42/candidate.xml", "line": 40},
                 "interface": "gigabit-ethernet-1/1/2", "details": []}],
    "triggers": [],
    "conflicts": [{"point": "vlm_memb_valp", "path": "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable",
                   "message": "Some MPLS VPN's have access and uplink interfaces in common.",
                   "parties": [0], "triggers": []}],
    "preexisting": false, "minimal": true, "enough": 0,
    "advice": {"alternatives": [[{"status": "added", "path": "/config/vlan{100}/interface{gigabit-ethernet-1/1/2}",
                                  "candidate": {"file": "night/42/candidate.xml", "line": 40}}]],
               "enough": 0, "choices": [], "minimal": true, "all-alternatives": true},
    "repairs": [],
    "suppressed": {"file": "known.txt", "line": 3, "reason": "the uplink moves next week"}})");
  EXPECT_EQ(nlohmann::ordered_json::parse(written(full_report())).at("findings").at(1), expected);
}

TEST(FindingJson, a_repair_names_what_to_change_and_its_values) {
  const auto repairs = nlohmann::ordered_json::parse(written(full_report())).at("findings").at(3).at("repairs");
  EXPECT_EQ(repairs.at(0), nlohmann::ordered_json::parse(R"({"kind": "free-vlans", "path": ")" + same_dot1q().path +
                                                         R"(/dot1q", "place": {"file": "night/42/candidate.xml",
                           "line": 11}, "values": ["211", "209"], "on-all-ports": true})"));
  EXPECT_EQ(repairs.at(3), nlohmann::ordered_json::parse(
                               R"({"kind": "two-commits", "values": ["2"], "command": "vpnval plan a -o b"})"));
}

TEST(FindingJson, a_bound_that_ended_the_search_is_named) {
  const auto expected = nlohmann::ordered_json::parse(
      R"({"all-faults": true, "calls": 500, "budget": {"calls": 500, "seconds": 2.5}, "complete": false,
          "ended-by": "calls", "all-repairs": true, "unproven-rules": ["vpn-limit"]})");
  EXPECT_EQ(nlohmann::ordered_json::parse(written(full_report())).at("search"), expected);
}

TEST(FindingJson, every_text_survives_but_for_bytes_that_are_no_utf8) {
  report::CheckReport report = full_report();
  report.commit.findings = {hostile()};
  const report::CommitReport commit = read_back(written(report), "");
  std::string expected = hostile_text;
  expected.replace(expected.size() - 1, 1, "\xef\xbf\xbd");
  EXPECT_EQ(commit.findings.at(0).message, expected);
  EXPECT_EQ(commit.findings.at(0).parties.at(1).vpn, expected);
}

TEST(FindingJson, documents_with_findings_fit_the_schema) {
  const CommitFolder folder;
  folder.write("full", single_document(full_report()));
  report::CheckReport report = full_report();
  report.commit.findings = {hostile()};
  report.commit.search.end = report::SearchEnd::contract_violation;
  report.commit.search.contract_violation = "vpn_peer_valp: values not freed: 1";
  EXPECT_EQ(read_back(written(report), "").search.contract_violation, report.commit.search.contract_violation);
  folder.write("broken", single_document(report));
  report.commit.search.end = report::SearchEnd::complete;
  report.commit.search.contract_violation.clear();
  folder.write("hostile", single_document(report));
  const ProcessResult result =
      run_reader("fits_schema.py", SOURCE_DIR "/docs/verdict.schema.json " + folder.file("full") + " " +
                                       folder.file("broken") + " " + folder.file("hostile"));
  EXPECT_EQ(result.output, "3 documents fit\n");
}

TEST(FindingJson, what_is_no_verdict_is_refused) {
  auto whole = nlohmann::ordered_json::parse(single_document(full_report()));
  const auto changed = [&whole](const std::string &pointer, nlohmann::ordered_json value) {
    nlohmann::ordered_json copy = whole;
    copy[nlohmann::ordered_json::json_pointer(pointer)] = std::move(value);
    return copy.dump();
  };
  const std::string verdict = "/commits/0/verdict";
  for (const std::string &text : {std::string(), std::string("commit rejected"), std::string("[]"),
                                  changed("/schema-version", 2), changed("/commits", nlohmann::ordered_json::array()),
                                  changed("/commits/0/status", "1"), changed(verdict + "/decision", "maybe"),
                                  changed(verdict + "/findings", nlohmann::ordered_json::object({{"rule", 1}})),
                                  changed(verdict + "/findings/0/conflicts/0/parties/1", 2),
                                  changed(verdict + "/findings/0/parties/0/status", "moved"),
                                  changed(verdict + "/findings/3/repairs/0/kind", "prayer"),
                                  changed(verdict + "/findings/0/message", 7), changed(verdict + "/search", nullptr)}) {
    EXPECT_THROW(report::read_single_result(text, ""), report::DocumentError) << text;
  }
  EXPECT_EQ(report::read_single_result(whole.dump(), "").exit_status, 1);
}

}  // namespace
