#include "maintenance/generator/draw_commit.h"

#include <gtest/gtest.h>

#include "build_paths.h"
#include "element/datastore/transaction.h"
#include "element/input/configuration.h"
#include "element/output/configuration_writer.h"
#include "host/run/commit.h"
#include "rules/rule.h"

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

// Every rule that a commit can draw is drawn, and some commits are accepted. The library reads the card's limits once,
// so this process asks about one element alone; that of the smaller limits is another test's.
TEST(DrawCommit, reaches_every_rule) {
  const element::Schema schema;
  const std::shared_ptr<const element::Profile> profile = maintenance::draw_commit(schema, 0).profile;
  host::HostSession session(*profile);
  const host::Plugin plugin(PLUGIN_FILE);
  std::map<std::string, std::size_t> drawn;
  for (std::uint64_t seed = 0; seed < 1500; ++seed) {
    const maintenance::Commit commit = maintenance::draw_commit(schema, seed);
    if (commit.profile != profile) continue;
    const auto transaction = element::make_transaction(commit.running, commit.candidate, *profile);
    const host::Verdict verdict = host::validate_commit(plugin, session, *transaction, {.all_points = true});
    if (verdict.decision == host::Decision::accepted) ++drawn["accepted"];
    for (const host::PointVerdict &point : verdict.points) {
      if (point.answer == host::Answer::accepted) continue;
      const rules::Rule *rule = rules::rule_of_message(point.point, point.text);
      ASSERT_NE(rule, nullptr) << point.text;
      ++drawn[rule->id];
    }
  }
  EXPECT_GT(drawn["accepted"], 50U);
  for (const rules::Rule &rule : rules::all_rules()) {
    if (rule.id == "interface-information" || rule.id.ends_with("-limit")) continue;
    EXPECT_NE(drawn[rule.id], 0U) << rule.id;
  }
}

}  // namespace
