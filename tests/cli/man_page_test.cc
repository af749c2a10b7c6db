#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "cli/command_line/exit_status.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/help_text.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

/// The page of a command; of the program itself for an empty one.
std::string page_of(const std::string &command) {
  return SOURCE_DIR "/docs/man/vpnval" + (command.empty() ? "" : "-" + command) + ".1";
}

std::string rendered(const std::string &command) {
  return run_process("MANWIDTH=200 man -E UTF-8 -l " + page_of(command) + " | col -bx").output;
}

std::vector<std::string> program_and_commands() {
  std::vector<std::string> all = commands_in_help();
  all.insert(all.begin(), "");
  return all;
}

void expect_sections(const std::string &command, const std::vector<std::string> &sections) {
  const std::string text = rendered(command);
  for (const std::string &section : sections) {
    EXPECT_NE(text.find("\n" + section + "\n"), std::string::npos) << command << ": " << section;
  }
}

TEST(ManPage, there_is_one_for_the_program_and_for_each_command_and_no_other) {
  std::set<std::string> expected;
  for (const std::string &command : program_and_commands()) expected.insert(page_of(command));
  std::set<std::string> pages;
  for (const auto &entry : fs::directory_iterator(SOURCE_DIR "/docs/man")) pages.insert(entry.path().string());
  EXPECT_EQ(pages, expected);
}

TEST(ManPage, renders_without_a_warning) {
  for (const std::string &command : program_and_commands()) {
    const ProcessResult result = run_process("man --warnings -E UTF-8 -l " + page_of(command) + " 2>&1 >/dev/null");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 0);
  }
}

TEST(ManPage, has_the_options_of_the_help_and_no_others) {
  for (const std::string &command : program_and_commands()) {
    EXPECT_EQ(options_at_line_begin(rendered(command), 7), options_in_help(command)) << command;
  }
  EXPECT_EQ(options_in_help("check").count("--fail-on-warn"), 1u);
}

TEST(ManPage, the_programs_lists_every_command) {
  const std::string text = rendered("");
  for (const std::string &command : commands_in_help()) {
    EXPECT_NE(text.find("\n       " + command + ", see vpnval-" + command + "(1)\n"), std::string::npos) << command;
  }
}

TEST(ManPage, has_every_section_and_exit_status) {
  expect_sections("", {"NAME", "SYNOPSIS", "DESCRIPTION", "COMMANDS", "OPTIONS", "EXIT STATUS", "ENVIRONMENT", "FILES",
                       "SEE ALSO"});
  const std::string text = rendered("");
  for (const auto &[status, meaning] : cli::exit_status_table) {
    const std::string line = std::to_string(static_cast<int>(status)) + " ";
    EXPECT_NE(text.find("\n       " + line), std::string::npos) << meaning;
  }
  for (const std::string &command : commands_in_help()) {
    expect_sections(command, {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "EXAMPLES", "SEE ALSO"});
  }
}

TEST(ManPage, bears_its_own_name_and_the_programs_version) {
  for (const std::string &command : program_and_commands()) {
    const std::string text = rendered(command);
    const std::string name = "vpnval" + (command.empty() ? "" : "-" + command);
    EXPECT_NE(text.find("\nNAME\n       " + name + " - "), std::string::npos) << name;
    EXPECT_NE(text.find("vpnval " VPNVAL_VERSION), std::string::npos) << name;
  }
}

}  // namespace
