#include "maintenance/generator/draw_commit.h"

#include <gtest/gtest.h>

#include "element/input/configuration.h"
#include "element/output/configuration_writer.h"
#include "maintenance/commits/ask.h"
#include "rules/rule.h"
#include "tests/support/build_under_test.h"

namespace {

using element::write_configuration;

constexpr element::InputFormat kXml = element::InputFormat::xml;

std::string text_of(const maintenance::Commit &commit) {
  return write_configuration(commit.running, kXml) + write_configuration(commit.candidate, kXml);
}

TEST(DrawCommit, a_seed_draws_the_same_commit_each_time) {
  const element::Schema schema;
  std::set<std::string> texts;
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    const std::string text = text_of(maintenance::draw_commit(schema, seed));
    EXPECT_EQ(text, text_of(maintenance::draw_commit(schema, seed)));
    texts.insert(text);
  }
  EXPECT_GT(texts.size(), 45U);
}

TEST(DrawCommit, what_is_drawn_is_what_an_operator_can_write) {
  const element::Schema schema;
  for (std::uint64_t seed = 1; seed <= 100; ++seed) {
    const maintenance::Commit commit = maintenance::draw_commit(schema, seed);
    for (const element::Tree *tree : {&commit.running, &commit.candidate}) {
      const std::string text = write_configuration(*tree, kXml);
      if (text.empty()) continue;
      EXPECT_EQ(write_configuration(element::parse_configuration(schema, text, "drawn"), kXml), text) << seed;
    }
  }
}

// Every rule that a commit can draw is drawn, and some commits are accepted.
TEST(DrawCommit, reaches_every_rule) {
  if (is_sanitized()) GTEST_SKIP() << "1,500 commits; other tests ask about drawn commits with sanitizers";
  const element::Schema schema;
  const maintenance::CommitRow row{1500, [&](std::size_t seed) { return maintenance::draw_commit(schema, seed); }};
  std::map<std::string, std::size_t> drawn;
  for (const maintenance::Answer &answer : maintenance::ask_all(plugin_file(), row, {.jobs = 2})) {
    ASSERT_EQ(answer.failure, "");
    if (answer.decision == host::Decision::accepted) ++drawn["accepted"];
    for (const host::PointVerdict &point : answer.points) ++drawn[maintenance::rule_id_of(point)];
  }
  EXPECT_GT(drawn["accepted"], 100U);
  EXPECT_EQ(drawn["unknown"], 0U);
  for (const rules::Rule &rule : rules::all_rules()) {
    if (rule.id == "interface-information") continue;
    EXPECT_NE(drawn[rule.id], 0U) << rule.id;
  }
}

}  // namespace
