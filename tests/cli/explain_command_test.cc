#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "rules/rule.h"
#include "tests/cli/commit_folder.h"

namespace {

namespace fs = std::filesystem;

/// The pages as the program prints them, by file name.
std::map<std::string, std::string> printed_pages() {
  std::map<std::string, std::string> pages{{"README.md", run_with_answers({"explain", "--format", "markdown"}).out}};
  for (const rules::Rule &rule : rules::all_rules()) {
    const std::string id(rule.id);
    pages[id + ".md"] = run_with_answers({"explain", id, "--format", "markdown"}).out;
  }
  return pages;
}

std::map<std::string, std::string> pages_in_the_tree() {
  std::map<std::string, std::string> pages;
  for (const auto &entry : fs::directory_iterator(SOURCE_DIR "/docs/rules")) {
    std::ifstream stream(entry.path());
    pages[entry.path().filename().string()].assign(std::istreambuf_iterator<char>(stream), {});
  }
  return pages;
}

TEST(ExplainCommand, a_page_tells_what_why_and_what_to_do) {
  const Outcome outcome = run_with_answers({"explain", "pw-id-twice"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, R"(pw-id-twice

  The PW ID %u must be unique per neighbor

Rejection by vpn_peer_valp

What provokes it
  Two pseudowires towards one neighbour have the same pw-id, whichever family
  they belong to. Towards different neighbours a pw-id may be used again.

Why the element refuses it
  The two ends of a pseudowire find each other by pw-id: it is what the label is
  offered under. With two of the same number the neighbour could not tell which
  label belongs to which service, and the frames of one would come out in the
  other.

What to do
  Give one of the two another pw-id, on both ends. The message tells the pw-id
  alone: look for it at the neighbours and backup neighbours of all VPLS and
  VPWS VPNs.

Examples
  examples/pw-id-twice-towards-a-neighbour

Rule
  src/lib/config_validate_comn/pseudowire_rules.cc
)");
}

TEST(ExplainCommand, a_warning_has_a_meaning_and_no_refusal) {
  const std::string page = run_with_answers({"explain", "member-on-uplink"}).out;
  EXPECT_NE(page.find("\nWarning by vlm_memb_valp\n"), std::string::npos) << page;
  EXPECT_NE(page.find("\nWhat it means\n"), std::string::npos) << page;
  EXPECT_EQ(page.find("refuses"), std::string::npos) << page;
}

TEST(ExplainCommand, a_message_without_an_example_says_so) {
  EXPECT_NE(run_with_answers({"explain", "interface-information"}).out.find("\nExamples\n  none\n"), std::string::npos);
}

TEST(ExplainCommand, the_prose_of_a_page_fits_a_terminal) {
  for (const rules::Rule &rule : rules::all_rules()) {
    std::istringstream page(run_with_answers({"explain", std::string(rule.id)}).out);
    for (std::string line; std::getline(page, line);) {
      if (line == "  " + std::string(rule.message)) continue;
      EXPECT_LE(line.size(), 80u) << line;
    }
  }
}

TEST(ExplainCommand, without_a_rule_lists_every_id_with_its_message) {
  const Outcome outcome = run_with_answers({"explain"});
  EXPECT_EQ(outcome.status, 0);
  std::istringstream lines(outcome.out);
  for (const rules::Rule &rule : rules::all_rules()) {
    std::string line;
    std::getline(lines, line);
    EXPECT_TRUE(line.starts_with(std::string(rule.id) + " ")) << line;
    EXPECT_TRUE(line.ends_with("  " + std::string(rule.severity == rules::Severity::warning ? "warning: " : "") +
                               std::string(rule.message)))
        << line;
  }
  EXPECT_EQ(lines.peek(), EOF);
}

TEST(ExplainCommand, takes_the_text_of_a_message_in_place_of_an_id) {
  EXPECT_EQ(run_with_answers({"explain", "The PW ID 210 must be unique per neighbor"}).out,
            run_with_answers({"explain", "pw-id-twice"}).out);
}

TEST(ExplainCommand, a_text_of_two_points_has_two_pages) {
  const std::string text(rules::find_rule("member-on-uplink")->message);
  EXPECT_EQ(run_with_answers({"explain", text}).out, run_with_answers({"explain", "access-on-uplink"}).out + "\n" +
                                                         run_with_answers({"explain", "member-on-uplink"}).out);
}

TEST(ExplainCommand, an_unknown_rule_is_a_usage_error_that_names_what_is_near) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"pw-id-twise", "there is no rule \"pw-id-twise\"; near it: pw-id-twice (vpnval explain lists all)"},
      {"uplink", "there is no rule \"uplink\"; near it: access-on-uplink, member-on-uplink (vpnval explain lists all)"},
      {"vpn_limit", "there is no rule \"vpn_limit\"; near it: vpn-limit (vpnval explain lists all)"},
      {"no such thing", "there is no rule \"no such thing\" (vpnval explain lists all)"},
      {std::string(5000, 'x'), "there is no rule \"" + std::string(5000, 'x') + "\" (vpnval explain lists all)"},
      {"\x1b[31m", "there is no rule \"\\x1b[31m\" (vpnval explain lists all)"},
  };
  for (const auto &[rule, error] : rows) {
    const Outcome outcome = run_with_answers({"explain", rule});
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "vpnval: " + error + "\n");
  }
}

// tools/renew_rule_pages writes them anew.
TEST(ExplainCommand, the_pages_in_the_tree_are_what_the_program_prints) {
  const auto printed = printed_pages();
  const auto in_the_tree = pages_in_the_tree();
  for (const auto &[name, page] : in_the_tree) EXPECT_EQ(printed.count(name), 1u) << "no rule has docs/rules/" << name;
  for (const auto &[name, page] : printed) {
    ASSERT_EQ(in_the_tree.count(name), 1u) << "docs/rules/" << name << " is missing";
    EXPECT_EQ(in_the_tree.at(name), page) << name;
  }
}

}  // namespace
