// What check says beside the verdict, with the library as it ships.

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <regex>

#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/support/build_under_test.h"

namespace {

const std::string rejected = SOURCE_DIR "/examples/access-two-vpns-one-vlan";
const std::string warned = SOURCE_DIR "/examples/uplink-shares-access-port";
const std::string accepted = SOURCE_DIR "/examples/access-two-vpns-two-vlans";
const std::string south =
    "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1}";

Outcome check(const std::string &commit, std::vector<std::string> options = {}) {
  options.insert(options.begin(), {"check", commit});
  return run_with_library(options);
}

/// What stands below the verdict.
std::string below_verdict(const Outcome &outcome) {
  const std::size_t decided_by = outcome.out.find("decided by ");
  return outcome.out.substr(outcome.out.find('\n', decided_by) + 1);
}

class CheckFindings : public testing::Test {
 protected:
  Outcome suppress(const std::string &commit, const std::string &lines, std::vector<std::string> options = {}) {
    folder.write("known.txt", lines);
    options.insert(options.end(), {"--suppress", folder.file("known.txt")});
    return check(commit, options);
  }

  /// Two access ports, each of them new on an uplink.
  void warn_twice() const {
    const std::string element = R"({"card": {"vpn-max": 8, "access-ports": 8}, "interfaces": [
      {"name": "gigabit-ethernet-1/1/1", "logical-id": 1, "ifindex": 1001},
      {"name": "gigabit-ethernet-1/1/2", "logical-id": 2, "ifindex": 1002}]})";
    const std::string uplinks = R"(
      "base:config": {"vlan": [{"id": 4000, "interface": [{"name": "gigabit-ethernet-1/1/1"},
                                                          {"name": "gigabit-ethernet-1/1/2"}]}],
                      "l3-interface": [{"name": "core-1", "vlan": 4000}]},)";
    const std::string ldp = R"("ldp:ldp": {"interface": [{"name": "core-1"}]})";
    const auto attached = [](const std::string &name, const std::string &port, const std::string &vlan) {
      return vpn(name, R"(, "access-interface": [{"name": ")" + port + R"(", "dot1q": )" + vlan + "}]");
    };
    folder.write("element.json", element);
    folder.configure(uplinks + R"("mpls:mpls": {)" + ldp + "}",
                     uplinks + R"("mpls:mpls": {)" + ldp +
                         R"(, "l2-vpn:l2vpn-config": {"l2vpn": {"vpws-group": [{"name": "metro", "vpn": [)" +
                         attached("east", "gigabit-ethernet-1/1/1", "101") + "," +
                         attached("west", "gigabit-ethernet-1/1/2", "102") + "]}]}}}");
  }

  CommitFolder folder;
};

TEST_F(CheckFindings, a_rejection_is_explained_with_both_parties_and_their_lines) {
  EXPECT_EQ(
      below_verdict(check(rejected)),
      "\nwhat the device says: 1\n\n"
      "1. rejected [access-same-dot1q]: vpls-group campus vpn data and vpws-group branches vpn south must not be "
      "configured with the same dot1q on interface gigabit-ethernet-1/1/1\n"
      "   involved:\n"
      "     + vpws-group branches, vpn south, interface gigabit-ethernet-1/1/1: added by this commit, dot1q 210 (" +
          rejected +
          "/candidate.xml:12)\n"
          "       vpls-group campus, vpn data, interface gigabit-ethernet-1/1/1: in the running configuration, "
          "dot1q 210 (" +
          rejected +
          "/running.xml:16)\n"
          "   to do: take back + " +
          south + " (" + rejected +
          "/candidate.xml:12)\n"
          "      or: change " +
          south + "/dot1q (" + rejected +
          "/candidate.xml:14) to what is free on this port: 211, 209 or 212\n"
          "\nwhy: vpnval explain access-same-dot1q\n"
          "what else is wrong, if anything: vpnval check --all-faults " +
          rejected + "\n");
}

TEST_F(CheckFindings, an_accepted_commit_has_nothing_below_its_verdict) {
  EXPECT_EQ(below_verdict(check(accepted)), "");
  EXPECT_EQ(below_verdict(check(accepted, {"--all-faults"})), "");
}

TEST_F(CheckFindings, without_a_budget_rule_and_hints_stand_below_the_verdict) {
  for (const std::string nothing : {"0", "0s", "0,60s"}) {
    const Outcome outcome = check(rejected, {"--budget", nothing});
    EXPECT_EQ(
        below_verdict(outcome),
        "\nwhat the device says: 1\n\n"
        "1. rejected [access-same-dot1q]: vpls-group campus vpn data and vpws-group branches vpn south must not be "
        "configured with the same dot1q on interface gigabit-ethernet-1/1/1\n"
        "   at " +
            south + " (" + rejected +
            "/candidate.xml:12)\n"
            "\nwhy: vpnval explain access-same-dot1q\n"
            "what else is wrong, if anything: vpnval check --all-faults " +
            rejected + "\n");
    EXPECT_EQ(outcome.status, 1);
  }
}

TEST_F(CheckFindings, hints_are_commands_to_copy) {
  const std::string candidate = rejected + "/candidate.xml";
  folder.write("it's.xml", "");
  std::filesystem::copy(candidate, folder.file("it's.xml"), std::filesystem::copy_options::overwrite_existing);
  const std::string text = check(rejected, {"--candidate", folder.file("it's.xml"), "--budget", "0"}).out;
  const std::string hint = "what else is wrong, if anything: vpnval check ";
  ASSERT_NE(text.find(hint), std::string::npos) << text;
  const std::string command = text.substr(text.find(hint) + hint.size());
  const ProcessResult result = run_process(vpnval_file() + " check " + command.substr(0, command.find('\n')));
  EXPECT_EQ(result.status, 1) << command;
  EXPECT_NE(result.output.find(folder.file("it's.xml") + ":12"), std::string::npos) << result.output;
}

TEST_F(CheckFindings, a_suppression_that_is_over_is_told_and_suppresses_nothing) {
  const std::string line = "access-same-dot1q " + south + " until 2001-02-03 # moves tonight\n";
  const Outcome text = suppress(rejected, line);
  EXPECT_EQ(text.err, "vpnval: expired suppression: " + folder.file("known.txt") + ":1: access-same-dot1q " + south +
                          ", until 2001-02-03\n");
  EXPECT_EQ(text.out.find("suppressed by"), std::string::npos);
  const auto json = nlohmann::json::parse(verdict_in(suppress(rejected, line, {"--format=json"}).out));
  EXPECT_EQ(json.at("expired-suppressions").size(), 1u);
  EXPECT_FALSE(json.at("findings").at(0).contains("suppressed"));
}

TEST_F(CheckFindings, a_budget_that_is_used_up_is_told) {
  EXPECT_NE(below_verdict(check(rejected, {"--budget", "1"})).find("\nsearch stopped: budget of 1 library calls used"),
            std::string::npos);
  const auto search =
      nlohmann::json::parse(verdict_in(check(rejected, {"--budget", "1", "--format", "json"}).out)).at("search");
  EXPECT_EQ(search.at("calls"), 1);
  EXPECT_EQ(search.at("ended-by"), "calls");
}

TEST_F(CheckFindings, a_second_fault_of_the_same_message_is_told_next) {
  warn_twice();
  EXPECT_NE(check(folder.path()).out.find("what the device says: 1\n"), std::string::npos);
  EXPECT_EQ(check(folder.path()).out.find("what it would say next"), std::string::npos);
  const std::string text = check(folder.path(), {"--all-faults"}).out;
  EXPECT_NE(text.find("what it would say next: 1\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\nfor the commit to be accepted without a warning: take back these 2:\n"), std::string::npos)
      << text;
}

TEST_F(CheckFindings, a_suppressed_rejection_is_shown_and_the_commit_stays_rejected) {
  const Outcome outcome = suppress(rejected, "access-same-dot1q " + south + " # moves tonight\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.out.find("   suppressed by " + folder.file("known.txt") +
                             ":1: moves tonight\n"
                             "   the device rejects the commit all the same\n"),
            std::string::npos)
      << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CheckFindings, a_suppressed_warning_does_not_count_for_fail_on_warn) {
  EXPECT_EQ(check(warned, {"--fail-on-warn"}).status, 2);
  EXPECT_EQ(
      suppress(warned, "access-on-uplink /mpls/l2vpn-config/l2vpn/vpws-group{*}/vpn{south}/access-interface{*} # x",
               {"--fail-on-warn"})
          .status,
      0);
  EXPECT_EQ(
      suppress(warned, "access-on-uplink /mpls/l2vpn-config/l2vpn/vpws-group{*}/vpn{north}/access-interface{*} # x",
               {"--fail-on-warn"})
          .status,
      2);
}

TEST_F(CheckFindings, behind_a_suppressed_warning_another_counts) {
  warn_twice();
  const std::string east =
      "access-on-uplink /mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{east}/access-interface{*} # x\n";
  const std::string west =
      "access-on-uplink /mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}/access-interface{*} # x\n";
  EXPECT_EQ(suppress(folder.path(), east, {"--fail-on-warn"}).status, 2);
  EXPECT_EQ(suppress(folder.path(), west, {"--fail-on-warn"}).status, 2);
  EXPECT_EQ(suppress(folder.path(), east + west, {"--fail-on-warn"}).status, 0);
  EXPECT_EQ(suppress(folder.path(), east + west, {"--fail-on-warn", "--budget", "1"}).status, 2)
      << "what a search left unseen is not suppressed";
}

TEST_F(CheckFindings, a_suppression_that_fits_nothing_is_reported) {
  const Outcome text = suppress(accepted, "# known\naccess-same-dot1q " + south + " # moves tonight\n");
  EXPECT_EQ(text.err,
            "vpnval: unused suppression: " + folder.file("known.txt") + ":2: access-same-dot1q " + south + "\n");
  EXPECT_EQ(text.status, 0);
  const Outcome json = suppress(accepted, "access-same-dot1q " + south + " # moves tonight\n", {"--format", "json"});
  EXPECT_EQ(nlohmann::json::parse(verdict_in(json.out)).at("unused-suppressions"),
            nlohmann::json::array({folder.file("known.txt") + ":1: access-same-dot1q " + south}));
}

TEST_F(CheckFindings, a_wrong_suppression_file_is_an_input_error_before_anything_is_read) {
  const Outcome outcome = suppress("/nowhere", "no-such-rule /mpls # x\n");
  EXPECT_EQ(outcome.status, 65);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "vpnval: " + folder.file("known.txt") +
                             ":1: there is no rule \"no-such-rule\"; expected RULE PATH [until YYYY-MM-DD] # REASON\n");
  EXPECT_EQ(check(rejected, {"--suppress", folder.file("not-there.txt")}).status, 66);
}

TEST_F(CheckFindings, every_format_for_programs_is_alone_on_standard_output) {
  const Outcome text = check(rejected);
  const std::vector<std::pair<std::string, std::string>> begins{
      {"json", "{\n"}, {"sarif", "{\n  \"version\": \"2.1.0\""}, {"junit", "<?xml "}, {"github", "::error file="}};
  for (const auto &[format, begin] : begins) {
    const Outcome outcome = check(rejected, {"--format", format});
    EXPECT_EQ(outcome.out.find(begin), 0u) << outcome.out;
    EXPECT_EQ(outcome.err, text.out) << format;
    EXPECT_EQ(outcome.status, 1) << format;
  }
}

TEST_F(CheckFindings, a_commit_goes_by_its_folder_or_its_candidate) {
  EXPECT_NE(
      check(rejected, {"--format", "junit"}).out.find("<testcase classname=\"vpnval.check\" name=\"" + rejected + "\""),
      std::string::npos);
  const std::string candidate = rejected + "/candidate.xml";
  const Outcome files = run_with_library({"check", "--element", rejected + "/element.json", "--running",
                                          rejected + "/running.xml", "--candidate", candidate, "--format", "junit"});
  EXPECT_NE(files.out.find(" name=\"" + candidate + "\""), std::string::npos) << files.out;
}

// The text that comes through a pipe is there only once.
TEST_F(CheckFindings, a_configuration_from_a_pipe_has_the_lines_that_it_has_in_a_file) {
  for (const std::string which : {"running", "candidate"}) {
    const std::string file = rejected + "/" + which + ".xml";
    const std::string command = vpnval_file() + " check " + rejected + " --" + which + " ";
    const std::string from_file = run_process(command + file).output;
    const std::string from_pipe = run_process("cat " + file + " | " + command + "/dev/stdin").output;
    EXPECT_NE(from_pipe.find("(/dev/stdin:"), std::string::npos) << from_pipe;
    EXPECT_EQ(std::regex_replace(from_pipe, std::regex("/dev/stdin"), file), from_file);
  }
}

TEST_F(CheckFindings, colour_is_for_a_terminal_unless_it_is_wanted_or_not) {
  const std::string program = std::string("env -u NO_COLOR TERM=xterm " + vpnval_file() + " check ") + rejected;
  const std::string coloured = "1. <ESC>[1;31mrejected<ESC>[0m [access-same-dot1q]";
  const auto on_a_terminal = [](const std::string &command) {
    const ProcessResult result = run_reader("on_a_terminal.py", command);
    EXPECT_EQ(result.status, 1) << result.output;
    return result.output;
  };
  const auto in_a_pipe = [](const std::string &command) { return run_process(command).output; };
  EXPECT_NE(on_a_terminal(program).find(coloured), std::string::npos);
  EXPECT_NE(on_a_terminal(program).find("\n<ESC>[32m+<ESC>[0m /mpls/l2vpn-config"), std::string::npos);
  EXPECT_NE(on_a_terminal(program).find("\ncommit <ESC>[1;31mrejected<ESC>[0m: "), std::string::npos);
  for (const std::string plain : {"env NO_COLOR=1 TERM=xterm ", "env TERM=dumb "}) {
    EXPECT_EQ(on_a_terminal(plain + vpnval_file() + " check " + rejected).find("<ESC>"), std::string::npos) << plain;
  }
  EXPECT_EQ(on_a_terminal(program + " --color never").find("<ESC>"), std::string::npos);
  EXPECT_EQ(on_a_terminal(program + " --format github").find("<ESC>"), std::string::npos);
  EXPECT_EQ(in_a_pipe(program).find('\x1b'), std::string::npos);
  EXPECT_NE(
      in_a_pipe("NO_COLOR=1 " + vpnval_file() + " check --color always " + rejected).find("\x1b[1;31mrejected\x1b[0m"),
      std::string::npos);
}

}  // namespace
