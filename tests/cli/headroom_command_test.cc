// The real program with the real library, which reads some limits once a process.

#include "cli/commands/headroom_command.h"

#include <gtest/gtest.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/support/build_under_test.h"

namespace {

using nlohmann::json;

const std::string on_port = R"(, "access-interface": [{"name": "ge-1"}])";

std::string vpls_group(const std::string &vpns) {
  return R"("mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"mpls-l2vpn-vpls:vpls-group": [{"name": "campus", "vpn": [)" +
         vpns + "]}]}}}";
}

std::string element(int vpns, const std::string &port = "ge-1") {
  return R"({"card": {"vpn-max": )" + std::to_string(vpns) +
         R"(, "access-ports": 4, "selective-encapsulation-vlan-entries": 20,
            "selective-encapsulation-vlan-ranges": 10}, "interfaces": [{"name": ")" +
         port + R"(", "logical-id": 1, "ifindex": 1001}]})";
}

class HeadroomCommand : public testing::Test {
 protected:
  HeadroomCommand() {
    folder.write("element.json", element(3));
    folder.write("small.json", element(1));
    folder.configure("", vpws_group(vpn("east", on_port) + "," + vpn("west")));
  }

  /// What the program leaves; the last line of its standard error, which progress may come before, in `err`.
  ProcessResult run(const std::string &options, const std::string &environment = "") {
    ProcessResult result = run_process("cd " + folder.path() + " && " + environment + " " + vpnval_file() +
                                       " headroom . " + options + " 2>err");
    err = run_process("tail -n 1 " + folder.file("err")).output;
    return result;
  }

  const CommitFolder folder;
  std::string err;
};

std::string without_build_id(std::string text) {
  const std::size_t at = text.find("build id ");
  return at == std::string::npos ? text : text.substr(0, at) + "build id ID\n";
}

TEST_F(HeadroomCommand, tells_what_is_left_on_the_folders_element) {
  const ProcessResult result = run("");
  EXPECT_EQ(without_build_id(result.output), R"([1] ./element.json: accepted

left of each limit                                      used  [1]
VPNs                                                       2  1 of 3
pseudowires                                                0  1024 of 1024
selective encapsulation: VLANs and ranges                  0  20 of 20
selective encapsulation: ranges                            0  10 of 10
selective encapsulation: ranges of an access interface
  ge-1                                                     0  8 of 8

decided by )" + plugin_file() + R"(, build id ID
)");
  EXPECT_EQ(result.status, 0);
}

TEST_F(HeadroomCommand, compares_elements_and_ends_as_rejected_where_one_rejects) {
  const ProcessResult result = run("--element element.json --element small.json --element element.json");
  EXPECT_EQ(without_build_id(result.output), R"([1] element.json: accepted
[2] small.json: rejected
    vpn_overflow_valp: Maximum number of VPNs has been exceeded. Attempt to configure 2 of 1 allowed
[3] element.json: accepted

left of each limit                                      used  [1]           [2]           [3]
VPNs                                                       2  1 of 3        -1 of 1       1 of 3
pseudowires                                                0  1024 of 1024  1024 of 1024  1024 of 1024
selective encapsulation: VLANs and ranges                  0  20 of 20      20 of 20      20 of 20
selective encapsulation: ranges                            0  10 of 10      10 of 10      10 of 10
selective encapsulation: ranges of an access interface
  ge-1                                                     0  8 of 8        8 of 8        8 of 8

decided by )" + plugin_file() + R"(, build id ID
)");
  EXPECT_EQ(result.status, 1);
}

TEST_F(HeadroomCommand, an_element_has_the_same_numbers_alone_and_among_others) {
  const json together = json::parse(run("--format json --element element.json --element small.json").output);
  const json alone = json::parse(run("--format json --element small.json").output);
  EXPECT_EQ(together.at("elements").size(), 2u);
  EXPECT_EQ(together.at("elements").at(1), alone.at("elements").at(0));
  EXPECT_EQ(together.at("library"), alone.at("library"));
  EXPECT_EQ(together.at("inputs"), alone.at("inputs"));
}

TEST_F(HeadroomCommand, names_that_could_not_be_read_are_told_for_each_element) {
  const std::string running = " --running " SOURCE_DIR "/examples/blank-in-name-hides-static-member/running.xml";
  const std::string candidate = " --candidate " SOURCE_DIR "/examples/blank-in-name-hides-static-member/candidate.xml";
  const std::string element = " --element " SOURCE_DIR "/examples/blank-in-name-hides-static-member/element.json";
  const std::string notice = "    3 questions of the library could not be read because of the name `a b`: rules ";
  const std::string text = run_process(vpnval_file() + " headroom" + running + candidate + element).output;
  EXPECT_NE(text.find(": accepted\n" + notice), std::string::npos) << text;

  const ProcessResult two =
      run_process(vpnval_file() + " headroom --format json" + running + candidate + element + element);
  const json document = json::parse(two.output);
  for (const json &measured : document.at("elements")) {
    EXPECT_EQ(measured.at("unreadable").at(0).at("name"), "a b");
    EXPECT_EQ(measured.at("unreadable").at(0).at("questions"), 3);
  }
}

TEST_F(HeadroomCommand, a_name_that_only_the_trials_ask_about_is_told_too) {
  const std::string domain = R"(, "bridge-domain": {"dot1q": 5, "access-interface": [{"name": "ge-1"}]})";
  const std::string same = vpls_group(vpn("a b", domain));
  folder.configure(same, same);
  const json element = json::parse(run("--format json").output).at("elements").at(0);
  EXPECT_EQ(element.at("unreadable").at(0).at("name"), "a b");
}

TEST_F(HeadroomCommand, every_document_fits_the_schema) {
  folder.write("one", run("--format json").output);
  folder.write("three", run("--format json --element small.json --element element.json").output);
  const ProcessResult result = run_reader(
      "fits_schema.py", SOURCE_DIR "/docs/headroom.schema.json " + folder.file("one") + " " + folder.file("three"));
  EXPECT_EQ(result.output, "2 documents fit\n");
}

TEST_F(HeadroomCommand, what_is_wrong_with_one_element_is_told_before_any_is_measured) {
  folder.write("other.json", element(3, "ge-9"));
  folder.configure("", vlan_member("ge-1"));
  const ProcessResult result = run("--element element.json --element other.json");
  EXPECT_EQ(result.status, 65);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(err,
            "vpnval: other.json: candidate configuration: /config/vlan{100}/interface{ge-1}: not in the profile (near: "
            "ge-9); expected an interface of the profile\n");
}

TEST_F(HeadroomCommand, a_missing_profile_is_an_unreadable_file) {
  EXPECT_EQ(run("--element element.json --element none.json").status, 66);
  EXPECT_EQ(err, "vpnval: none.json: cannot be read: No such file or directory; expected a readable file\n");
}

TEST_F(HeadroomCommand, a_library_that_cannot_be_loaded_is_told_with_the_element) {
  folder.write("no-library", "");
  const std::string reason = folder.path() + "/no-library: not a library that can be loaded: file too short\n";
  EXPECT_EQ(run("--plugin no-library").status, 69);
  EXPECT_EQ(err, "vpnval: " + reason);
  EXPECT_EQ(run("--plugin no-library --element small.json --element element.json").status, 69);
  EXPECT_EQ(err, "vpnval: small.json: " + reason);
}

TEST_F(HeadroomCommand, a_library_that_breaks_its_contract_is_told_with_the_element) {
  const std::string answers = "VPNVAL_PLUGIN=" + answering_plugin_file();
  EXPECT_EQ(run("--element small.json --element element.json", answers).status, 70);
  EXPECT_EQ(err, "vpnval: small.json: vpn_sp_valp: answered 7; 0, -1 or -3 was expected\n");
}

TEST_F(HeadroomCommand, a_library_that_stops_its_process_stops_one_element) {
  const std::string answers = "VPNVAL_PLUGIN=" + answering_plugin_file();
  folder.configure("", vpls_group(vpn("voice", R"(, "bridge-domain": {"access-interface": [{"name": "ge-1"}]})")));
  EXPECT_EQ(run("", answers).status, 128 + SIGABRT);
  EXPECT_EQ(run("--element small.json --element element.json", answers).status, 70);
  EXPECT_EQ(err,
            "vpnval: small.json: stopped by signal SIGABRT: answers.cc:1: validate: Assertion `data model' failed.\n");
}

TEST_F(HeadroomCommand, without_a_commit_is_a_usage_error) {
  const Outcome outcome = run_with_answers({"headroom", "--element", folder.file("element.json")});
  EXPECT_EQ(outcome.status, 64);
  EXPECT_EQ(outcome.err, "vpnval: a directory was expected, or --element, --running and --candidate or --edit\n");
}

}  // namespace
