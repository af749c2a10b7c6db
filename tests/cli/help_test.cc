#include "cli/command_line/help.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/command_line/exit_status.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/help_text.h"

namespace {

TEST(Help, words_stand_for_options) {
  EXPECT_EQ(run_with_answers({"help"}).out, run_with_answers({"--help"}).out);
  EXPECT_EQ(run_with_answers({"help", "check"}).out, run_with_answers({"check", "--help"}).out);
  EXPECT_EQ(run_with_answers({"version"}).out, "vpnval " VPNVAL_VERSION "\n");
  const Outcome none = run_with_answers({"help", "chekc"});
  EXPECT_EQ(none.status, 64);
  EXPECT_EQ(none.err, "vpnval: no help: there is no \"chekc\"; did you mean check?\n");
  EXPECT_EQ(run_with_answers({"version", "x"}).status, 64);
}

TEST(Help, every_command_lists_its_statuses_and_an_example) {
  for (const std::string &command : commands_in_help()) {
    const std::string help = help_of(command);
    const std::size_t statuses = help.find("\nExit status:\n  0   ");
    ASSERT_NE(statuses, std::string::npos) << command;
    EXPECT_NE(help.find("\n  64  the command line is wrong\n", statuses), std::string::npos) << command;
    EXPECT_NE(help.find("\nExample:\n  vpnval " + command + " ", statuses), std::string::npos) << command;
  }
  EXPECT_EQ(cli::help_footer("explain").find("\n  1   "), std::string::npos);
  EXPECT_NE(cli::help_footer("check").find("\n  3   "), std::string::npos);
}

TEST(Help, commands_and_options_that_there_are_not_name_those_that_are_near) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> rows{
      {{"chekc"}, ": there is no \"chekc\"; did you mean check?"},
      {{"frobnicate"}, ": there is no \"frobnicate\" ("},
      {{"check", "x", "--all-fault"}, "; did you mean --all-faults?"},
      {{"check", "x", "--bugdet=3"}, "; did you mean --budget?"},
      {{"plan", "x", "--outptu", "y"}, "; did you mean --output?"},
  };
  for (const auto &[arguments, expected] : rows) {
    const Outcome outcome = run_with_answers(arguments);
    EXPECT_EQ(outcome.status, 64);
    EXPECT_NE(outcome.err.find(expected), std::string::npos) << outcome.err;
  }
}

TEST(Help, show_takes_the_files_of_a_commit_and_prints_json) {
  const CommitFolder folder;
  const std::string candidate = "{" + vlan_member("ge-1") + "}";
  folder.write("other.json", candidate);
  const std::string path = "/config/vlan{100}";
  const Outcome text = run_with_answers({"show", folder.path(), path, "--candidate", folder.file("other.json")});
  EXPECT_EQ(text.out, "/config/vlan{100}/interface{ge-1}\n");
  const Outcome edited = run_with_answers({"show", folder.path(), path, "--edit", folder.file("other.json")});
  EXPECT_EQ(edited.out, text.out) << edited.err;
  const Outcome json =
      run_with_answers({"show", folder.path(), path, "--candidate", folder.file("other.json"), "--format", "json"});
  EXPECT_EQ(nlohmann::json::parse(json.out).at("nodes"),
            nlohmann::json::parse(R"([{"path": "/config/vlan{100}/interface{ge-1}"}])"));
}

}  // namespace
