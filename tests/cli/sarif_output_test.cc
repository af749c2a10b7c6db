#include <glob.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "report/ci/sarif.h"
#include "report/ci/sarif_rules.h"
#include "report/escape/file_uri.h"
#include "rules/rule.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/cli/sample_findings.h"

namespace {

using nlohmann::json;

std::string written(const std::vector<report::CommitReport> &commits) {
  std::ostringstream out;
  report::write_sarif(out, commits);
  return out.str();
}

json results_of(const std::vector<report::CommitReport> &commits) {
  return json::parse(written(commits)).at("runs").at(0).at("results");
}

/// The official schema: the one that VPNVAL_SARIF_SCHEMA names, or one in a folder "schemas" beside the source tree.
std::string schema_file() {
  if (const char *named = std::getenv("VPNVAL_SARIF_SCHEMA")) return named;
  glob_t found{};
  std::string file;
  if (glob(SOURCE_DIR "/../*/schemas/sarif-2.1.0.json", 0, nullptr, &found) == 0) file = found.gl_pathv[0];
  globfree(&found);
  return file;
}

std::string fingerprint_of(const report::Finding &finding) {
  return results_of({decided({finding})}).at(0).at("partialFingerprints").at("conflict/v1");
}

TEST(SarifOutput, a_validating_reader_finds_every_result_and_place) {
  const std::string schema = schema_file();
  if (schema.empty()) {
    GTEST_SKIP() << "no SARIF schema at hand: VPNVAL_SARIF_SCHEMA may name a copy of sarif-2.1.0.json";
  }
  report::CommitReport decided_one = decided({same_dot1q(), uplink_warning(), too_many_vpns(5)});
  decided_one.findings[1].suppressed = report::Suppressed{{"known faults.txt", 3}, "lab"};
  decided_one.search.end = report::SearchEnd::call_budget;
  report::CommitReport broken;
  broken.name = "night/43";
  broken.error = "night/43/candidate.xml:7: /mpls: what is wrong";
  broken.error_place = {"night/43/candidate.xml", 7};
  const CommitFolder folder;
  folder.write("log", written({decided_one, broken}));
  const ProcessResult result = run_reader("read_sarif.py", schema + " " + folder.file("log"));
  EXPECT_EQ(result.output,
            "error access-same-dot1q night/42/candidate.xml:11 related: night/42/running.xml:16 suppressed: \n"
            "warning member-on-uplink night/42/candidate.xml:40 related:  suppressed: known%20faults.txt:3\n"
            "error vpn-limit night/42/candidate.xml:10 related: night/42/candidate.xml:20 night/42/candidate.xml:30 "
            "night/42/candidate.xml:40 night/42/candidate.xml:50 suppressed: \n"
            "error not-decided night/43/candidate.xml:7 related:  suppressed: \n"
            "notification warning night/42: search stopped: budget of 20,000 library calls used; there "
            "may be further findings; --budget sets the bound\n");
  EXPECT_EQ(result.status, 0);
}

TEST(SarifOutput, hostile_texts_leave_a_valid_log) {
  const std::string schema = schema_file();
  if (schema.empty()) {
    GTEST_SKIP() << "no SARIF schema at hand: VPNVAL_SARIF_SCHEMA may name a copy of sarif-2.1.0.json";
  }
  const CommitFolder folder;
  folder.write("log", written({decided({hostile()})}));
  const ProcessResult result = run_reader("read_sarif.py", schema + " " + folder.file("log"));
  EXPECT_EQ(
      result.output.find("error access-same-dot1q a%22b'c%3Cd%3E&amp;%5D%5D%3E%3A%3Aerror%20file=x,line=1%3A%3Ay%25"),
      0u)
      << result.output;
  EXPECT_EQ(result.status, 0);
}

TEST(SarifOutput, a_result_names_its_rule_its_message_and_its_parties) {
  const json expected = json::parse(R"({
    "ruleId": "access-same-dot1q", "level": "error",
    "message": {"text": "vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same dot1q on interface gigabit-ethernet-1/1/1"},
    "locations": [{
      "physicalLocation": {"artifactLocation": {"uri": "night/42/candidate.xml"}, "region": {"startLine": 11}},
      "logicalLocations": [{"fullyQualifiedName":
        "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1}"}]}],
    "relatedLocations": [{
      "id": 1,
      "physicalLocation": {"artifactLocation": {"uri": "night/42/running.xml"}, "region": {"startLine": 16}},
      "logicalLocations": [{"fullyQualifiedName":
        "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain/access-interface{gigabit-ethernet-1/1/1}"}],
      "message": {"text": "vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: in the running configuration"}}],
    "properties": {"commit": "night/42", "from-device": true, "preexisting": false, "minimal": true}})");
  json result = results_of({decided({same_dot1q()})}).at(0);
  const json rules = json::parse(written({})).at("runs").at(0).at("tool").at("driver").at("rules");
  EXPECT_EQ(rules.at(result.at("ruleIndex").get<std::size_t>()).at("id"), "access-same-dot1q");
  result.erase("ruleIndex");
  result.erase("partialFingerprints");
  result["properties"].erase("advice");
  EXPECT_EQ(result, expected) << result.dump(2);
}

TEST(SarifOutput, a_finding_without_parties_stands_at_the_node_under_validation) {
  report::Finding finding = same_dot1q();
  finding.parties.clear();
  finding.place.line = 0;
  finding.rule.clear();
  const json result = results_of({decided({finding})}).at(0);
  EXPECT_FALSE(result.contains("ruleId"));
  EXPECT_FALSE(result.contains("relatedLocations"));
  EXPECT_EQ(result.at("locations").at(0).at("physicalLocation"),
            json::parse(R"({"artifactLocation": {"uri": "night/42/candidate.xml"}})"));
  EXPECT_EQ(result.at("locations").at(0).at("logicalLocations").at(0).at("fullyQualifiedName"), finding.path);
}

TEST(SarifOutput, a_party_that_the_commit_leaves_alone_is_related_even_where_it_is_the_only_one) {
  report::Finding finding = same_dot1q();
  finding.parties.erase(finding.parties.begin());
  const json result = results_of({decided({finding})}).at(0);
  EXPECT_EQ(result.at("relatedLocations").size(), 1u);
  EXPECT_EQ(result.at("locations").at(0).at("logicalLocations").at(0).at("fullyQualifiedName"), finding.path);
}

TEST(SarifOutput, the_run_has_the_advice_for_all_findings_of_a_commit) {
  report::CommitReport commit = decided({same_dot1q(), too_many_vpns(5)});
  EXPECT_FALSE(json::parse(written({commit})).at("runs").at(0).contains("properties"));
  commit.advice = same_dot1q().advice;
  const json log = json::parse(written({decided({}), commit}));
  const json &joint = log.at("runs").at(0).at("properties").at("joint-advice");
  ASSERT_EQ(joint.size(), 1u);
  EXPECT_EQ(joint.at(0).at("commit"), "night/42");
  EXPECT_EQ(joint.at(0).at("rollback"), false);
  const json &own = log.at("runs").at(0).at("results").at(0).at("properties").at("advice");
  EXPECT_EQ(joint.at(0).at("advice"), own);
  EXPECT_EQ(own.at("alternatives").at(0).at(0).at("path"), same_dot1q().advice.alternatives.at(0).at(0).node.path);
}

TEST(SarifOutput, what_makes_the_library_look_is_related_and_said_to_be_that) {
  const json result = results_of({decided({in_force(same_dot1q())})}).at(0);
  const json &related = result.at("relatedLocations");
  ASSERT_EQ(related.size(), 2u);
  EXPECT_EQ(related.at(1).at("id"), 2);
  EXPECT_EQ(related.at(1).at("message").at("text"),
            "makes the library look: vpws-group branches, vpn new: added by this commit");
  EXPECT_EQ(result.at("properties").at("preexisting"), true);
}

TEST(SarifOutput, what_the_device_would_say_next_begins_with_that) {
  const json results = results_of({decided({same_dot1q(), uplink_warning()})});
  EXPECT_EQ(results.at(0).at("message").at("text"), same_dot1q().message);
  EXPECT_EQ(results.at(1).at("message").at("text"), "it would say next: " + uplink_warning().message);
}

TEST(SarifOutput, a_commit_that_could_not_be_decided_is_a_result) {
  report::CommitReport broken;
  broken.name = "night/43";
  broken.error = "night/43: is no directory that can be read";
  EXPECT_EQ(results_of({broken}), json::parse(R"([{"ruleId": "not-decided", "level": "error",
    "message": {"text": "night/43: is no directory that can be read"}, "properties": {"commit": "night/43"}}])"));
  EXPECT_EQ(json::parse(written({broken})).at("runs").at(0).at("invocations"),
            json::parse(R"([{"executionSuccessful": false}])"));
}

TEST(SarifOutput, what_can_be_changed_instead_is_a_property) {
  report::Finding finding = same_dot1q();
  EXPECT_FALSE(results_of({decided({finding})}).at(0).at("properties").contains("repairs"));
  finding.repairs = {{report::RepairKind::free_vlans,
                      finding.path + "/dot1q",
                      report::FilePlace{"night/42/candidate.xml", 13},
                      {"211", "209"},
                      true},
                     {report::RepairKind::two_commits, "", std::nullopt, {"2"}, false}};
  EXPECT_EQ(results_of({decided({finding})}).at(0).at("properties").at("repairs"), json::parse(R"([
    {"kind": "free-vlans",
     "path": "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1}/dot1q",
     "place": {"file": "night/42/candidate.xml", "line": 13}, "values": ["211", "209"], "on-all-ports": true},
    {"kind": "two-commits", "values": ["2"]}])"));
}

TEST(SarifOutput, fingerprints_stay_while_lines_move_and_tell_faults_apart) {
  report::Finding moved = same_dot1q();
  moved.place.line = 500;
  moved.parties[0].node.candidate->line = 500;
  moved.parties[1].node.status = report::ChangeStatus::changed;
  EXPECT_EQ(fingerprint_of(moved), fingerprint_of(same_dot1q()));
  EXPECT_EQ(fingerprint_of(too_many_vpns(5)), fingerprint_of(too_many_vpns(6)));

  report::Finding other_rule = same_dot1q();
  other_rule.rule = "access-untagged-twice";
  report::Finding other_party = same_dot1q();
  other_party.parties[1].node.path += "/x";
  EXPECT_NE(fingerprint_of(other_rule), fingerprint_of(same_dot1q()));
  EXPECT_NE(fingerprint_of(other_party), fingerprint_of(same_dot1q()));
  EXPECT_NE(fingerprint_of(too_many_vpns(5)), fingerprint_of(same_dot1q()));
  // The number that readers have stored: another one would make every known fault a new one.
  EXPECT_EQ(fingerprint_of(same_dot1q()), "69dc647732d798e8");
}

TEST(SarifOutput, every_rule_is_described_once) {
  const json rules = json(report::sarif_rules());
  ASSERT_EQ(rules.size(), rules::all_rules().size());
  for (std::size_t i = 0; i < rules.size(); ++i) {
    const rules::Rule &rule = rules::all_rules()[i];
    EXPECT_EQ(rules[i].at("id"), rule.id);
    EXPECT_EQ(rules[i].at("defaultConfiguration").at("level"),
              rule.severity == rules::Severity::warning ? "warning" : "error");
    EXPECT_FALSE(rules[i].at("help").at("text").get<std::string>().empty());
    EXPECT_EQ(rules[i].at("messageStrings").at("default").at("text").get<std::string>().find('%'), std::string::npos);
  }
}

TEST(SarifOutput, a_rules_message_numbers_its_arguments) {
  const json rules = report::sarif_rules();
  for (const json &rule : rules) {
    if (rule.at("id") != "vpn-limit") continue;
    EXPECT_EQ(rule.at("messageStrings").at("default").at("text"),
              "Maximum number of VPNs has been exceeded. Attempt to configure {0} of {1} allowed");
  }
}

TEST(SarifOutput, texts_make_neither_arguments_nor_links) {
  EXPECT_EQ(report::sarif_text("dot1q-range [100-200] {x}"), "dot1q-range [100-200] {{x}}");
  EXPECT_EQ(report::sarif_text("[link](https://example.invalid)"), "\\[link\\](https://example.invalid)");
}

TEST(SarifOutput, files_become_uri_references) {
  for (const auto &[file, uri] : std::vector<std::pair<std::string, std::string>>{
           {"night/42/candidate.xml", "night/42/candidate.xml"},
           {"./night//42/../43/candidate.xml", "night/43/candidate.xml"},
           {"../night/candidate.xml", "../night/candidate.xml"},
           {"/etc/night 42/c#1?.xml", "file:///etc/night%2042/c%231%3F.xml"},
           {"a:b%c.xml", "a%3Ab%25c.xml"},
           {"n\xc3\xa4"
            "cht\xff.xml",
            "n%C3%A4cht%FF.xml"},
       }) {
    EXPECT_EQ(report::file_uri(file), uri);
  }
}

}  // namespace
