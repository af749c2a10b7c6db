#include <gtest/gtest.h>

#include <set>

#include "cli/exit_status.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/process.h"

namespace {

const std::string man_page = SOURCE_DIR "/docs/man/vpnval.1";

std::string rendered() { return run_process("MANWIDTH=200 man -E UTF-8 -l " + man_page + " | col -bx").output; }

/// The long options that a help text or a manual page names.
std::set<std::string> options_in(const std::string &text) {
  std::set<std::string> options;
  for (std::size_t at = text.find("--"); at != std::string::npos; at = text.find("--", at + 2)) {
    const std::size_t end = text.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", at);
    options.insert(text.substr(at, end - at));
  }
  return options;
}

TEST(ManPage, renders_without_a_warning) {
  const ProcessResult result = run_process("man --warnings -E UTF-8 -l " + man_page + " 2>&1 >/dev/null");
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.status, 0);
}

TEST(ManPage, has_the_options_of_the_help_and_no_others) {
  std::string help;
  for (const auto &arguments :
       std::vector<std::vector<std::string>>{{"--help"}, {"check", "--help"}, {"show", "--help"}}) {
    help += run_with_answers(arguments).out;
  }
  EXPECT_EQ(options_in(rendered()), options_in(help));
  EXPECT_EQ(options_in(help).count("--fail-on-warn"), 1u);
}

TEST(ManPage, has_every_section_and_exit_status) {
  const std::string text = rendered();
  for (const std::string section :
       {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "ENVIRONMENT", "FILES", "EXAMPLES"}) {
    EXPECT_NE(text.find("\n" + section + "\n"), std::string::npos) << section;
  }
  for (const auto &[status, meaning] : cli::exit_status_table) {
    const std::string line = std::to_string(static_cast<int>(status)) + " ";
    EXPECT_NE(text.find("\n       " + line), std::string::npos) << meaning;
  }
}

TEST(ManPage, bears_the_programs_version) { EXPECT_NE(rendered().find("vpnval " VPNVAL_VERSION), std::string::npos); }

}  // namespace
