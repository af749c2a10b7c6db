#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "rules/rule.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/help_text.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using Offers = std::set<std::string>;

/// What the shell offers at the end of the line, in a directory; the program that it asks is the one under test.
class Completion : public testing::TestWithParam<std::string> {
 protected:
  Offers offered(const std::string &line, const std::string &directory = "/") const {
    const std::string script = SOURCE_DIR "/tests/cli/completion/offered_by_" + GetParam();
    const std::string path = fs::path(vpnval_file()).parent_path().string();
    const ProcessResult result =
        run_process("cd " + directory + " && PATH=" + path + ":$PATH timeout 60 " + script + " '" + line + "'");
    EXPECT_EQ(result.status, 0) << line;
    Offers offers;
    std::istringstream lines(result.output);
    for (std::string offer; std::getline(lines, offer);) offers.insert(offer);
    return offers;
  }
};

Offers rule_ids() {
  Offers ids;
  for (const rules::Rule &rule : rules::all_rules()) ids.insert(std::string(rule.id));
  return ids;
}

TEST_P(Completion, offers_the_commands) {
  const std::vector<std::string> commands = commands_in_help();
  EXPECT_EQ(offered("vpnval "), Offers(commands.begin(), commands.end()));
  EXPECT_EQ(offered("vpnval ch"), Offers{"check"});
  EXPECT_EQ(offered("vpnval no-such"), Offers{});
}

TEST_P(Completion, offers_every_option_of_the_help) {
  EXPECT_EQ(offered("vpnval -"), options_in_help(""));
  for (const std::string &command : commands_in_help()) {
    EXPECT_EQ(offered("vpnval " + command + " -"), options_in_help(command)) << command;
  }
  EXPECT_EQ(offered("vpnval check --fail-on-w"), Offers{"--fail-on-warn"});
}

TEST_P(Completion, offers_the_values_that_an_option_lists) {
  for (const std::string &command : commands_in_help()) {
    for (const auto &[option, values] : listed_values_in_help(command)) {
      EXPECT_EQ(offered("vpnval " + command + " " + option + " "), values) << command << " " << option;
    }
  }
  EXPECT_EQ(offered("vpnval explain --format "), (Offers{"text", "markdown"}));
  EXPECT_EQ(offered("vpnval explain pw-id-twice --format m"), Offers{"markdown"});
}

TEST_P(Completion, offers_the_rules_once) {
  EXPECT_EQ(offered("vpnval explain "), rule_ids());
  EXPECT_EQ(offered("vpnval explain --format text pw-"), (Offers{"pw-id-twice", "pw-id-moved"}));
  EXPECT_EQ(offered("vpnval explain pw-id-twice pw-"), Offers{});
}

TEST_P(Completion, offers_files_for_a_file_and_directories_for_a_commit) {
  const CommitFolder folder;
  fs::create_directory(folder.file("commits"));
  EXPECT_EQ(offered("vpnval check --element e", folder.path()), Offers{"element.json"});
  EXPECT_EQ(offered("vpnval check c", folder.path()), Offers{"commits"});
  EXPECT_EQ(offered("vpnval check --all c", folder.path()), Offers{"commits"});
  EXPECT_EQ(offered("vpnval check --format json c", folder.path()), Offers{"commits"});
  EXPECT_EQ(offered("vpnval show c", folder.path()), Offers{"commits"});
  EXPECT_EQ(offered("vpnval diff --plugin c", folder.path()), (Offers{"candidate.json", "commits"}));
  EXPECT_EQ(offered("vpnval shrink e", folder.path()), Offers{"element.json"});
  EXPECT_EQ(offered("vpnval show commits c", folder.path()), Offers{});
}

INSTANTIATE_TEST_SUITE_P(Shell, Completion, testing::Values("bash", "zsh"),
                         [](const auto &shell) { return shell.param; });

}  // namespace
