#include "report/json/plan_json.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "report/text/plan_text.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/interrupted.h"
#include "tests/cli/reader.h"
#include "tests/cli/sample_findings.h"
#include "tests/support/build_under_test.h"

namespace {

using nlohmann::json;

const std::string examples = SOURCE_DIR "/examples/";

report::PlanReport no_steps() {
  report::PlanReport report;
  report.inputs = {"c/element.json", "c/running.xml", "c/candidate.xml"};
  report.plugin_file = "/lib/library.so";
  report.build_id = "0123abcd";
  report.calls = 41;
  report.budget_calls = 20000;
  report.budget_seconds = 60;
  return report;
}

report::PlanReport ended_by(report::SearchEnd end) {
  report::PlanReport report = no_steps();
  report.end = end;
  return report;
}

report::PlanReport with_own_fault(const std::string &message) {
  report::PlanReport report = no_steps();
  report.own_fault = host::PointVerdict{};
  report.own_fault->point = "vpn_access_valp";
  report.own_fault->path = "/mpls";
  report.own_fault->text = message;
  return report;
}

std::string json_of(const report::PlanReport &report) {
  std::ostringstream out;
  write_plan_json(out, report);
  return out.str();
}

class PlanJson : public testing::Test {
 protected:
  json plan(const std::string &commit, int status) {
    const Outcome outcome = run_with_library({"plan", commit, "-o", steps, "--format", "json"});
    EXPECT_EQ(outcome.status, status) << outcome.err;
    return fitting(outcome.out);
  }

  json fitting(const std::string &document) {
    folder.write("document", document);
    EXPECT_EQ(run_reader("fits_schema.py", SOURCE_DIR "/docs/plan.schema.json " + folder.file("document")).output,
              "1 documents fit\n");
    return json::parse(document);
  }

  CommitFolder folder;
  std::string steps = folder.file("steps");
};

TEST_F(PlanJson, tells_what_of_other_modules_was_passed_over) {
  report::PlanReport report = with_own_fault("wrong");
  EXPECT_FALSE(fitting(json_of(report)).contains("passed-over"));
  report.passed_over.candidate = {212, 87};
  const json counts = fitting(json_of(report)).at("passed-over");
  EXPECT_EQ(counts.at("running").at("nodes"), 0);
  EXPECT_EQ(counts.at("candidate"), json::parse(R"({"nodes": 212, "modules": 87})"));
  report.foreign.emplace();
  report.foreign->candidate.passed_over.modules.push_back({"urn:other", 212, 7, "c/candidate.xml"});
  const json listed = fitting(json_of(report)).at("passed-over").at("candidate").at("list");
  EXPECT_EQ(listed, json::parse(R"([{"module": "urn:other", "nodes": 212, "file": "c/candidate.xml", "line": 7}])"));
}

TEST_F(PlanJson, each_step_has_its_folder_and_what_it_changes) {
  const json document = plan(examples + "pw-id-moved-to-another-vpn", 0);
  EXPECT_EQ(document.at("steps"), json::parse(R"([
    {"folder": ")" + steps + R"(/1",
     "changes": [{"change": "removed", "path": "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}",
                  "derived": false}]},
    {"folder": ")" + steps + R"(/2",
     "changes": [{"change": "changed", "derived": false, "old": "101", "new": "102",
                  "path": "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{north}/neighbor{192.0.2.1}/pw-id"}]}])"))
      << document.dump(2);
  EXPECT_FALSE(document.at("search").contains("ended-by"));
  for (const json &step : document.at("steps")) {
    EXPECT_EQ(run_with_library({"check", step.at("folder").get<std::string>()}).status, 0);
  }
}

TEST_F(PlanJson, a_fault_of_the_candidate_itself_is_told_with_its_rule) {
  const json document = plan(examples + "access-two-vpns-one-vlan", 1);
  EXPECT_EQ(document.at("steps"), json::array());
  EXPECT_EQ(document.at("no-steps").at("reason"), "own-fault");
  EXPECT_EQ(document.at("no-steps").at("fault").at("rule"), "access-same-dot1q");
  EXPECT_FALSE(std::filesystem::exists(steps));
}

TEST_F(PlanJson, a_signal_ends_the_search_and_leaves_a_whole_document) {
  for (const int signal : {SIGINT, SIGTERM}) {
    const Outcome outcome =
        interrupted(signal, 3, {"plan", examples + "pw-ids-swapped", "-o", steps, "--format", "json"});
    EXPECT_EQ(outcome.status, 1);
    const json document = fitting(outcome.out);
    EXPECT_EQ(document.at("no-steps").at("reason"), "interrupted");
    EXPECT_EQ(document.at("search").at("ended-by"), "interrupted");
    EXPECT_FALSE(std::filesystem::exists(steps));
  }
}

TEST_F(PlanJson, a_signal_is_said_in_the_text) {
  const Outcome outcome = interrupted(SIGINT, 3, {"plan", examples + "pw-ids-swapped", "-o", steps});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.out.starts_with("no steps found: interrupted after ")) << outcome.out;
}

TEST_F(PlanJson, every_reason_fits_the_schema) {
  report::PlanReport no_split = no_steps();
  no_split.parts_tried = 6;
  report::PlanReport broken = ended_by(report::SearchEnd::contract_violation);
  broken.contract_violation = "a value was freed twice";
  for (const auto &[report, reason] : std::vector<std::pair<report::PlanReport, std::string>>{
           {no_steps(), "too-many-parts"},
           {no_split, "no-split"},
           {with_own_fault("a message of another library"), "own-fault"},
           {ended_by(report::SearchEnd::call_budget), "budget"},
           {ended_by(report::SearchEnd::time_budget), "budget"},
           {ended_by(report::SearchEnd::interrupted), "interrupted"},
           {broken, "contract-violation"}}) {
    EXPECT_EQ(fitting(json_of(report)).at("no-steps").at("reason"), reason);
    std::ostringstream text;
    write_plan_text(text, report);
    EXPECT_NE(text.str().find(no_steps_text(report)), std::string::npos);
  }
}

TEST_F(PlanJson, hostile_texts_leave_a_whole_document) {
  const json document = fitting(json_of(with_own_fault(hostile_text)));
  EXPECT_FALSE(document.at("no-steps").at("fault").contains("rule"));
}

}  // namespace
