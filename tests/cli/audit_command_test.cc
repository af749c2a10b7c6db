#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

const std::string kExample = SOURCE_DIR "/examples/access-two-vpns-one-vlan/";
const std::string kFaulty = kExample + "candidate.xml";
const std::string kSound = kExample + "running.xml";

Outcome audit(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"audit", "--element", kExample + "element.json"});
  return run_with_library(arguments);
}

TEST(Audit, tells_what_is_in_force_and_each_fault_in_it) {
  const Outcome outcome = audit({kFaulty});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "");
  const std::string south =
      "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-"
      "1/1/1}";
  const std::string message =
      "vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same dot1q on "
      "interface gigabit-ethernet-1/1/1\n";
  const std::string begin =
      "in force: VPNs 2, attachments 2, neighbours 2, members 0\nvalidation points fired: 6\n"
      "  vpn_access_valp at " +
      south + ": rejected: " + message +
      "\naudit: 6 of 6 points asked, 5 accepted, 0 with a warning, 1 rejected\ndecided by ";
  EXPECT_TRUE(outcome.out.starts_with(begin)) << outcome.out;
  const std::string fault =
      "\n\nfaults in force: 1\n\n1. rejected [access-same-dot1q]: " + message +
      "   involved:\n"
      "       vpws-group branches, vpn south, interface gigabit-ethernet-1/1/1: in force, dot1q 210 (" +
      kFaulty +
      ":12)\n"
      "       vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: in force, dot1q 210 (" +
      kFaulty + ":30)\n   to do: remove any 1 of these 2:\n     " + south + " (" + kFaulty + ":12)\n";
  EXPECT_NE(outcome.out.find(fault), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("\n\nnothing else is wrong\n"), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.out.find("this commit"), std::string::npos) << outcome.out;
}

TEST(Audit, of_a_sound_configuration_finds_nothing) {
  const Outcome outcome = audit({kSound});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(
      outcome.out.starts_with("in force: VPNs 1, attachments 1, neighbours 1, members 0\n"
                              "validation points fired: 4\n\n"
                              "audit: 4 of 4 points asked, 4 accepted, 0 with a warning, 0 rejected\n"))
      << outcome.out;
}

TEST(Audit, finds_a_warning_whose_status_is_that_of_fail_on_warn) {
  const std::string warned = SOURCE_DIR "/examples/uplink-shares-access-port/candidate.xml";
  EXPECT_EQ(audit({warned}).status, 0);
  EXPECT_EQ(audit({warned, "--fail-on-warn"}).status, 2);
}

TEST(Audit, of_many_files_sums_up) {
  const ProcessResult result = run_process(vpnval_file() + " audit --element " + kExample + "element.json " + kSound +
                                           " " + kFaulty + " --jobs 2");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(
      result.output.starts_with(kSound + ": no fault in force\n" + kFaulty + ": 1 fault in force\n1. rejected "))
      << result.output;
  EXPECT_NE(result.output.find("\ncommits: 2\n       1 accepted\n"), std::string::npos) << result.output;
}

TEST(Audit, documents_fit_the_schema) {
  const CommitFolder folder;
  folder.write("one", audit({kFaulty, "--format=json"}).out);
  folder.write("many", run_process(vpnval_file() + " audit -q --format json --element " + kExample + "element.json " +
                                   kSound + " " + kFaulty)
                           .output);
  const ProcessResult result = run_reader(
      "fits_schema.py", SOURCE_DIR "/docs/verdict.schema.json " + folder.file("one") + " " + folder.file("many"));
  EXPECT_EQ(result.output, "2 documents fit\n");
  const auto verdict = nlohmann::json::parse(verdict_in(audit({kFaulty, "--format=json"}).out));
  EXPECT_EQ(verdict.at("audit"), true);
  EXPECT_EQ(verdict.at("inputs").at("running"), "");
  EXPECT_EQ(verdict.at("findings").at(0).at("parties").at(0).at("status"), "in-force");
}

TEST(Audit, tells_what_is_wrong_with_the_command_line_and_the_input) {
  EXPECT_EQ(run_with_library({"audit", kSound}).err,
            "vpnval: --element is required (vpnval --help lists what is expected)\n");
  EXPECT_EQ(audit({"/no/such/file"}).err,
            "vpnval: /no/such/file: cannot be read: No such file or directory; expected a readable file\n");
  EXPECT_EQ(audit({kSound, "-"}).err,
            "vpnval: - beside other files, or with --jobs; expected files, for each is read by a process of its own\n");
}

TEST(StandardInput, takes_the_place_of_a_file_that_is_read) {
  const CommitFolder folder;
  folder.configure(R"("base:config": {"vlan": [{"id": 5}]})", "");
  folder.write("edit.json", R"({"base:config": {"vlan": [{"id": 7}]}})");
  const std::string vpnval = "cd " + folder.path() + " && " + vpnval_file() + " ";
  const std::string candidate =
      "{\n  \"base:config\": {\n    \"vlan\": [\n      {\n        \"id\": 7\n      }\n    ]\n  }\n}\n";
  EXPECT_EQ(run_process(vpnval + "apply --running - --edit edit.json < running.json").output, candidate);
  EXPECT_EQ(run_process(vpnval + "apply --running running.json --edit - < edit.json").output, candidate);
  EXPECT_EQ(run_process(vpnval + "audit - --element element.json < running.json").status, 0);
  EXPECT_EQ(run_process("echo '{\"x\"' | (" + vpnval + "apply --running running.json --edit - 2>&1)").output,
            "vpnval: -:2:1: syntax error while parsing object separator - unexpected end of input; expected ':'\n");
}

TEST(StandardInput, is_read_once_alone) {
  EXPECT_EQ(run_with_library({"apply", "--running", "-", "--edit", "-"}).err,
            "vpnval: - is given more than once; expected it once, for standard input can be read once alone\n");
  EXPECT_EQ(run_with_library({"headroom", "--running", "-", "--candidate", kSound, "--element",
                              kExample + "element.json", "--element", kExample + "element.json"})
                .err,
            "vpnval: - with several elements; expected files, for they are read once for each\n");
}

}  // namespace
