#include "maintenance/shrinking/shrink.h"

#include <gtest/gtest.h>

#include "maintenance/commits/ask.h"
#include "maintenance/commits/commit_lines.h"
#include "maintenance/generator/draw_commit.h"
#include "maintenance/shrinking/configuration_nodes.h"
#include "maintenance/shrinking/ddmin.h"
#include "maintenance/shrinking/same_words.h"
#include "tests/support/build_under_test.h"

namespace {

using maintenance::Answer;
using maintenance::Commit;
using Numbers = std::vector<int>;

TEST(Ddmin, finds_a_part_of_which_nothing_can_be_left_out) {
  Numbers all;
  for (int i = 0; i < 100; ++i) all.push_back(i);
  const auto holds = [](const Numbers &part) {
    return std::count(part.begin(), part.end(), 7) + std::count(part.begin(), part.end(), 81) == 2;
  };
  EXPECT_EQ(maintenance::ddmin(all, holds), (Numbers{7, 81}));
  EXPECT_EQ(maintenance::ddmin(all, [](const Numbers &) { return true; }), Numbers());
  EXPECT_EQ(maintenance::ddmin(Numbers{5}, [](const Numbers &part) { return !part.empty(); }), Numbers{5});
  EXPECT_EQ(maintenance::ddmin(Numbers{1, 2, 3}, [](const Numbers &part) { return part.size() == 3; }),
            (Numbers{1, 2, 3}));
}

TEST(Ddmin, asks_about_no_part_twice) {
  Numbers all;
  for (int i = 0; i < 100; ++i) all.push_back(i);
  std::set<Numbers> asked;
  const auto needs_all = [&](const Numbers &part) {
    EXPECT_TRUE(asked.insert(part).second) << part.size();
    return false;
  };
  EXPECT_EQ(maintenance::ddmin(all, needs_all), all);
}

/// Every commit with one node fewer, or one change fewer.
std::vector<Commit> smaller_ones(const Commit &commit) {
  std::vector<Commit> smaller;
  for (std::size_t depth = 0;; ++depth) {
    const auto nodes = maintenance::nodes_at(commit, depth);
    if (nodes.empty()) break;
    for (const maintenance::CommitNode &node : nodes) {
      Commit &without = smaller.emplace_back(commit);
      maintenance::erase_node(without.running, node.path);
      maintenance::erase_node(without.candidate, node.path);
    }
  }
  for (const element::Path &change : maintenance::outermost_changes(commit)) {
    maintenance::copy_node(smaller.emplace_back(commit).candidate, commit.running, change);
    maintenance::copy_node(smaller.emplace_back(commit).running, commit.candidate, change);
  }
  return smaller;
}

// The precondition of the judgement is the property itself: whatever is drawn, nothing of what is left is superfluous.
TEST(Shrink, of_what_is_left_nothing_can_be_left_out) {
  const element::Schema schema;
  std::size_t shrunk_commits = 0;
  for (std::uint64_t seed = 0; shrunk_commits < (is_sanitized() ? 1U : 8U); ++seed) {
    const Commit whole = maintenance::draw_commit(schema, seed);
    if (maintenance::count_nodes(whole) > 60) continue;
    const Answer answer = maintenance::ask(plugin_file(), whole);
    if (!says_something(answer)) continue;
    ++shrunk_commits;
    const auto reproduces = [&](const Commit &commit) {
      return draws_same_words(maintenance::ask(plugin_file(), commit), answer);
    };
    const maintenance::ShrunkCommit shrunk = maintenance::shrink(whole, reproduces);
    SCOPED_TRACE(std::to_string(seed) + " " + words_text(answer) + "\n" + commit_text(shrunk.commit));
    EXPECT_TRUE(shrunk.is_complete);
    EXPECT_LE(shrunk.nodes_after, shrunk.nodes_before);
    EXPECT_TRUE(reproduces(shrunk.commit));
    for (const Commit &smaller : smaller_ones(shrunk.commit)) {
      EXPECT_FALSE(reproduces(smaller)) << commit_text(smaller);
    }
  }
}

TEST(Shrink, stops_when_the_questions_are_used_up) {
  const element::Schema schema;
  const Commit whole = maintenance::draw_commit(schema, 1);
  const maintenance::ShrunkCommit shrunk = maintenance::shrink(
      whole, [](const Commit &) { return false; }, 3);
  EXPECT_EQ(shrunk.questions, 3U);
  EXPECT_FALSE(shrunk.is_complete);
  EXPECT_EQ(shrunk.nodes_after, shrunk.nodes_before);
}

// A commit on which a library dies is as good as one that it rejects.
TEST(Shrink, finds_the_smallest_commit_on_which_a_library_dies) {
  const element::Schema schema;
  for (std::uint64_t seed = 0;; ++seed) {
    const Commit whole = maintenance::draw_commit(schema, seed);
    const Answer answer = maintenance::ask(answering_plugin_file(), whole);
    if (answer.end != maintenance::AnswerEnd::died) continue;
    const maintenance::ShrunkCommit shrunk = maintenance::shrink(whole, [&](const Commit &commit) {
      return draws_same_words(maintenance::ask(answering_plugin_file(), commit), answer);
    });
    // One access interface that comes into a VPLS VPN fires the point at which it aborts.
    const std::vector<std::string> lines = commit_lines(shrunk.commit);
    ASSERT_LE(lines.size(), 2U) << commit_text(shrunk.commit);
    EXPECT_TRUE(lines.back().starts_with("+ /mpls/l2vpn-config/l2vpn/vpls-group{")) << lines.back();
    return;
  }
}

}  // namespace
