#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "rules/rule.h"

namespace {

namespace fs = std::filesystem;
using rules::all_rules;
using rules::Rule;
using rules::Severity;

/// What a point said, as a check's output shows it.
struct SaidMessage {
  std::string point;
  bool is_warning = false;
  std::string text;
};

std::vector<SaidMessage> messages_in(const fs::path &expected) {
  static const std::regex line("^  (\\w+_valp) at .*: (rejected|warning): (.*)$");
  std::ifstream stream(expected);
  std::vector<SaidMessage> messages;
  std::smatch match;
  for (std::string text; std::getline(stream, text);) {
    if (std::regex_match(text, match, line)) messages.push_back({match[1], match[2] == "warning", match[3]});
  }
  return messages;
}

TEST(RuleTable, ids_are_hyphenated_words_and_no_two_alike) {
  std::set<std::string_view> ids;
  for (const Rule &rule : all_rules()) {
    EXPECT_TRUE(std::regex_match(std::string(rule.id), std::regex("[a-z][a-z0-9]*(-[a-z0-9]+)+"))) << rule.id;
    EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
  }
  EXPECT_GE(ids.size(), 32u);
}

TEST(RuleTable, points_stand_together_in_the_order_in_which_they_fire) {
  std::vector<std::string_view> points;
  for (const Rule &rule : all_rules()) {
    if (points.empty() || points.back() != rule.point) points.push_back(rule.point);
  }
  EXPECT_EQ(points,
            (std::vector<std::string_view>{"vpn_overflow_valp", "vpn_name_valp", "vpn_peer_valp", "vpn_access_valp",
                                           "vpn_access_intf_valp", "vpn_sp_valp", "vlm_memb_valp"}));
}

TEST(RuleTable, a_limit_is_a_message_that_counts) {
  for (const Rule &rule : all_rules()) {
    EXPECT_EQ(rule.counts, rule.message.ends_with("Attempt to configure %d of %d allowed")) << rule.id;
    EXPECT_EQ(rule.counts, rule.id.ends_with("-limit")) << rule.id;
  }
}

TEST(RuleTable, a_page_is_whole_prose_without_a_sign_of_markdown) {
  for (const Rule &rule : all_rules()) {
    for (const std::string_view prose : {rule.provokes, rule.why, rule.remedy}) {
      EXPECT_TRUE(prose.ends_with('.')) << rule.id << ": " << prose;
      EXPECT_EQ(prose.find("  "), prose.npos) << rule.id << ": " << prose;
      EXPECT_EQ(prose.find_first_of("`_*<>|[]#\\\n"), prose.npos) << rule.id << ": " << prose;
    }
  }
}

TEST(RuleTable, no_two_rules_are_provoked_by_the_same) {
  std::set<std::string_view> provocations;
  for (const Rule &rule : all_rules()) EXPECT_TRUE(provocations.insert(rule.provokes).second) << rule.id;
}

TEST(RuleTable, every_message_is_said_by_its_examples_and_the_look_up_finds_its_row) {
  for (const Rule &rule : all_rules()) {
    for (const std::string_view example : rule.examples) {
      const auto messages = messages_in(fs::path(SOURCE_DIR) / "examples" / example / "expected.txt");
      ASSERT_EQ(messages.size(), 1u) << example;
      EXPECT_EQ(rules::rule_of_message(messages[0].point, messages[0].text), &rule) << messages[0].text;
      EXPECT_EQ(messages[0].is_warning, rule.severity == Severity::warning) << example;
    }
  }
}

TEST(RuleTable, every_example_with_a_message_stands_in_one_row) {
  std::multiset<std::string> named;
  for (const Rule &rule : all_rules()) named.insert(rule.examples.begin(), rule.examples.end());

  std::multiset<std::string> saying;
  for (const auto &entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "examples")) {
    if (!messages_in(entry.path() / "expected.txt").empty()) saying.insert(entry.path().filename().string());
  }
  EXPECT_EQ(named, saying);
}

TEST(RuleTable, a_row_without_an_example_is_one_that_no_commit_provokes) {
  for (const Rule &rule : all_rules()) {
    EXPECT_EQ(rule.examples.empty(), rule.id == "interface-information") << rule.id;
  }
}

TEST(RuleTable, a_rule_is_found_by_its_whole_id) {
  EXPECT_EQ(rules::find_rule("pw-id-twice")->message, "The PW ID %u must be unique per neighbor");
  for (const std::string_view wrong : {"", "pw-id", "pw-id-twice ", "PW-ID-TWICE"}) {
    EXPECT_EQ(rules::find_rule(wrong), nullptr) << wrong;
  }
}

}  // namespace
