// The real program: what only a process of its own can show.

#include <gtest/gtest.h>

#include <csignal>

#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

const std::string vpnval = vpnval_file();

TEST(Program, finds_the_library_that_stands_with_it) {
  const CommitFolder folder;
  const ProcessResult result = run_process(vpnval + " check " + folder.path());
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output.find("decided by " + plugin_file() + ", build id "), std::string::npos) << result.output;
}

TEST(Program, takes_the_library_that_the_environment_names) {
  const CommitFolder folder;
  const ProcessResult result =
      run_process("VPNVAL_PLUGIN=" + answering_plugin_file() + " " + vpnval + " check " + folder.path());
  EXPECT_NE(result.output.find("decided by " + answering_plugin_file() + ", build id "), std::string::npos)
      << result.output;
}

TEST(Program, a_result_that_cannot_be_written_is_an_error) {
  const CommitFolder folder;
  const ProcessResult result = run_process(vpnval + " check " + folder.path() + " 2>&1 >/dev/full");
  EXPECT_EQ(result.status, 73);
  EXPECT_EQ(result.output, "vpnval: standard output cannot be written\n");
}

TEST(Program, prints_the_difference_before_a_library_stops_it) {
  const CommitFolder folder;
  folder.configure("", R"("mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"mpls-l2vpn-vpls:vpls-group": [
    {"name": "campus", "vpn": [{"name": "voice", "bridge-domain": {"access-interface": [{"name": "ge-1"}]}}]}]}}})");
  const ProcessResult result = run_process("VPNVAL_PLUGIN=" + answering_plugin_file() + " " + vpnval + " check " +
                                           folder.path() + " 2>/dev/null");
  EXPECT_EQ(result.status, 128 + SIGABRT);
  EXPECT_EQ(result.output,
            "summary: VPNs 1 added; attachments 1 added\n"
            "changes: 3\n"
            "+ /mpls/l2vpn-config/l2vpn/vpls-group{campus}\n"
            "  + vpn{voice}\n"
            "  + vpn{voice}/bridge-domain/access-interface{ge-1}\n"
            "\n");
}

TEST(Program, hands_its_status_to_the_shell) {
  EXPECT_EQ(run_process(vpnval + " 2>/dev/null").status, 64);
  EXPECT_EQ(run_process(vpnval + " --version").status, 0);
}

}  // namespace
