#include "agent/core/question.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "tests/serve/scratch_folder.h"

namespace {

using agent::Answer;
using agent::Decision;

class Question : public testing::Test {
 protected:
  /// Asks a shell script in place of vpnval.
  Answer answer_of(const std::string &script) {
    settings.program = folder.file("vpnval");
    std::ofstream(settings.program) << "#!/bin/sh\n" << script << '\n';
    chmod(settings.program.c_str(), 0700);
    settings.budget = "5";
    return ask(settings, "r.xml", "c.xml");
  }

  ScratchFolder folder;
  agent::Settings settings;
};

TEST_F(Question, is_asked_about_the_two_files) {
  settings.plugin = "lib.so";
  settings.profile = "element.json";
  const Answer answer = answer_of("echo \"$@\" >&2; exit 70");
  EXPECT_EQ(answer.failure,
            "check --format=json --all-faults --budget=5 --plugin=lib.so --element=element.json --running=r.xml "
            "--candidate=c.xml");
}

TEST_F(Question, has_an_answer) {
  EXPECT_EQ(answer_of(R"(echo '{"commits": [{"verdict": {"decision": "accepted"}}]}')").decision, Decision::accepted);
}

TEST_F(Question, that_is_never_answered_is_given_up) {
  settings.limit = std::chrono::milliseconds(1);
  const Answer answer = answer_of("exec sleep 1000");
  EXPECT_EQ(answer.decision, Decision::undecided);
  EXPECT_EQ(answer.failure, "the library gave no answer for 0.001 s");
}

TEST_F(Question, that_cannot_be_asked_is_undecided) {
  settings.program = "/no/such/program";
  EXPECT_EQ(ask(settings, "r.xml", "c.xml").failure, "/no/such/program: No such file or directory");
}

TEST(Settings, are_read_as_they_were_written) {
  const ScratchFolder folder;
  agent::Settings settings;
  settings.program = "/usr/bin/vpnval";
  settings.profile = "/a \"b\"/element.json";
  settings.warnings = agent::WarningStyle::both;
  settings.startup = "/run/startup.xml";
  settings.kept_startup = "/state/startup.xml";
  settings.asks_at_edits = true;
  settings.limit = std::chrono::milliseconds(17);
  std::ofstream(folder.file("settings.json")) << write_settings(settings);
  const agent::Settings read = agent::read_settings(folder.file("settings.json"));
  EXPECT_EQ(write_settings(read), write_settings(settings));
  EXPECT_EQ(read.profile, settings.profile);
  EXPECT_EQ(read.warnings, settings.warnings);
  EXPECT_EQ(read.startup, settings.startup);
  EXPECT_EQ(read.kept_startup, settings.kept_startup);
  EXPECT_TRUE(read.asks_at_edits);
  EXPECT_EQ(read.limit, settings.limit);
}

TEST(Settings, that_are_none_are_an_error) {
  const ScratchFolder folder;
  EXPECT_THROW(agent::read_settings(folder.file("no")), std::runtime_error);
  std::ofstream(folder.file("settings.json")) << "{}";
  EXPECT_THROW(agent::read_settings(folder.file("settings.json")), std::runtime_error);
}

}  // namespace
