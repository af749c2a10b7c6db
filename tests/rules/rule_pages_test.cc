// The pages of docs/rules, as the program has them: their fields, and what these say of the tree.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "rules/rule.h"
#include "source_dir.h"

namespace {

namespace fs = std::filesystem;
using rules::all_rules;
using rules::Rule;
using rules::Severity;

/// A message as `vpnval check` prints it.
struct PrintedMessage {
  std::string point;
  bool is_warning = false;
  std::string text;
};

std::vector<PrintedMessage> messages_in(const fs::path &expected) {
  static const std::regex line("^  (\\w+_valp) at .*: (rejected|warning): (.*)$");
  std::ifstream stream(expected);
  std::vector<PrintedMessage> messages;
  std::smatch match;
  for (std::string text; std::getline(stream, text);) {
    if (std::regex_match(text, match, line)) messages.push_back({match[1], match[2] == "warning", match[3]});
  }
  return messages;
}

TEST(RulePages, every_file_but_the_index_is_a_rule) {
  std::set<std::string> files;
  for (const auto &entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "docs/rules")) {
    files.insert(entry.path().filename());
  }
  std::set<std::string> expected{"README.md"};
  for (const Rule &rule : all_rules()) expected.insert(rule.id + ".md");
  EXPECT_EQ(files, expected);
}

TEST(RulePages, ids_are_hyphenated_words_and_no_two_alike) {
  std::set<std::string_view> ids;
  for (const Rule &rule : all_rules()) {
    EXPECT_TRUE(std::regex_match(rule.id, std::regex("[a-z][a-z0-9]*(-[a-z0-9]+)+"))) << rule.id;
    EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
  }
  EXPECT_GE(ids.size(), 32u);
}

TEST(RulePages, rules_stand_in_the_order_of_their_pages_and_no_two_at_one_place) {
  int last = 0;
  for (const Rule &rule : all_rules()) {
    EXPECT_GT(rule.order, last) << rule.id;
    last = rule.order;
  }
}

TEST(RulePages, points_stand_together_in_the_order_in_which_they_fire) {
  std::vector<std::string_view> points;
  for (const Rule &rule : all_rules()) {
    if (points.empty() || points.back() != rule.point) points.push_back(rule.point);
  }
  EXPECT_EQ(points,
            (std::vector<std::string_view>{"vpn_overflow_valp", "vpn_name_valp", "vpn_peer_valp", "vpn_access_valp",
                                           "vpn_access_intf_valp", "vpn_sp_valp", "vlm_memb_valp"}));
}

TEST(RulePages, a_limit_is_a_message_that_counts) {
  for (const Rule &rule : all_rules()) {
    EXPECT_EQ(rule.counts, rule.message.ends_with("Attempt to configure %d of %d allowed")) << rule.id;
    EXPECT_EQ(rule.counts, rule.id.ends_with("-limit")) << rule.id;
  }
}

TEST(RulePages, a_list_is_the_first_name_of_its_message) {
  for (const Rule &rule : all_rules()) {
    EXPECT_TRUE(!rule.lists || rule.message.find("%s") == rule.message.find('%')) << rule.id;
  }
}

TEST(RulePages, the_parts_of_a_page_are_whole_sentences_without_markdown) {
  for (const Rule &rule : all_rules()) {
    for (const std::string_view prose : {rule.provokes, rule.why, rule.remedy}) {
      EXPECT_TRUE(prose.ends_with('.')) << rule.id << ": " << prose;
      EXPECT_EQ(prose.find("  "), prose.npos) << rule.id << ": " << prose;
      EXPECT_EQ(prose.find_first_of("`_*<>|[]#\\\n"), prose.npos) << rule.id << ": " << prose;
    }
  }
}

TEST(RulePages, no_two_rules_are_provoked_by_the_same) {
  std::set<std::string_view> provocations;
  for (const Rule &rule : all_rules()) EXPECT_TRUE(provocations.insert(rule.provokes).second) << rule.id;
}

TEST(RulePages, every_example_draws_the_message_of_its_page_and_the_look_up_finds_the_page) {
  for (const Rule &rule : all_rules()) {
    for (const std::string_view example : rule.examples) {
      const auto messages = messages_in(fs::path(SOURCE_DIR) / "examples" / example / "expected.txt");
      ASSERT_EQ(messages.size(), 1u) << example;
      EXPECT_EQ(rules::rule_of_message(messages[0].point, messages[0].text), &rule) << messages[0].text;
      EXPECT_EQ(messages[0].is_warning, rule.severity == Severity::warning) << example;
    }
  }
}

TEST(RulePages, every_example_with_a_message_stands_on_one_page) {
  std::multiset<std::string> named;
  for (const Rule &rule : all_rules()) named.insert(rule.examples.begin(), rule.examples.end());

  std::multiset<std::string> with_message;
  for (const auto &entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "examples")) {
    if (!messages_in(entry.path() / "expected.txt").empty()) with_message.insert(entry.path().filename().string());
  }
  EXPECT_EQ(named, with_message);
}

TEST(RulePages, a_page_without_an_example_is_one_that_no_commit_draws) {
  for (const Rule &rule : all_rules()) {
    EXPECT_EQ(rule.examples.empty(), rule.id == "interface-information") << rule.id;
  }
}

TEST(RulePages, the_index_has_every_page_with_its_message_under_its_point) {
  std::vector<std::string> expected;
  std::string point;
  for (const Rule &rule : all_rules()) {
    if (rule.point != point) expected.push_back("## `" + rule.point + "`");
    point = rule.point;
    expected.push_back("| [" + rule.id + "](" + rule.id + ".md) | " +
                       (rule.severity == Severity::warning ? "Warning: `" : "`") + rule.message + "` |");
  }

  std::vector<std::string> index;
  std::ifstream stream(fs::path(SOURCE_DIR) / "docs/rules/README.md");
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("## `") || line.starts_with("| [")) index.push_back(line);
  }
  EXPECT_EQ(index, expected);
}

TEST(RulePages, a_rule_is_found_by_its_whole_id) {
  EXPECT_EQ(rules::find_rule("pw-id-twice")->message, "The PW ID %u must be unique per neighbor");
  for (const std::string_view wrong : {"", "pw-id", "pw-id-twice ", "PW-ID-TWICE"}) {
    EXPECT_EQ(rules::find_rule(wrong), nullptr) << wrong;
  }
}

}  // namespace
