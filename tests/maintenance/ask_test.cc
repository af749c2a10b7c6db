#include "maintenance/commits/ask.h"

#include <gtest/gtest.h>

#include "host/run/plugin.h"
#include "maintenance/generator/draw_commit.h"
#include "source_dir.h"
#include "tests/support/build_under_test.h"

namespace {

using maintenance::Answer;
using maintenance::AnswerEnd;
using maintenance::ask_all;

maintenance::CommitRow drawn(const element::Schema &schema, std::size_t count) {
  return {count, [&schema](std::size_t seed) { return maintenance::draw_commit(schema, seed); }};
}

std::vector<std::string> fired(const Answer &answer) {
  std::vector<std::string> points;
  for (const host::PointVerdict &point : answer.points) points.push_back(point.point);
  return points;
}

bool holds(const std::vector<std::string> &points, const char *point) {
  return std::find(points.begin(), points.end(), point) != points.end();
}

// The other library aborts at one point and breaks the contract at another; the commits around it are answered.
TEST(Ask, what_a_library_does_to_its_process_is_an_answer) {
  const element::Schema schema;
  const std::vector<Answer> sound = ask_all(plugin_file(), drawn(schema, 120), {.jobs = 2});
  const std::vector<Answer> answers = ask_all(answering_plugin_file(), drawn(schema, 120), {.jobs = 2});
  std::map<AnswerEnd, std::size_t> ends;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    ASSERT_EQ(sound[i].end, AnswerEnd::answered) << sound[i].failure;
    const std::vector<std::string> points = fired(sound[i]);
    ++ends[answers[i].end];
    if (answers[i].end == AnswerEnd::died) {
      EXPECT_EQ(answers[i].failure, "died of SIGABRT");
      EXPECT_TRUE(holds(points, "vpn_access_intf_valp"));
    } else if (answers[i].end == AnswerEnd::broke_contract) {
      EXPECT_EQ(answers[i].failure, "vpn_sp_valp: answered 7; 0, -1 or -3 was expected");
      EXPECT_TRUE(holds(points, "vpn_sp_valp"));
    } else {
      EXPECT_EQ(fired(answers[i]), points);
      EXPECT_FALSE(holds(points, "vpn_sp_valp") || holds(points, "vpn_access_intf_valp"));
    }
  }
  EXPECT_EQ(ends.size(), 3U);
}

TEST(Ask, answers_do_not_depend_on_how_many_processes_ask) {
  const element::Schema schema;
  const std::vector<Answer> one = ask_all(plugin_file(), drawn(schema, 60));
  const std::vector<Answer> many = ask_all(plugin_file(), drawn(schema, 60), {.jobs = 7});
  ASSERT_EQ(one.size(), many.size());
  for (std::size_t i = 0; i < one.size(); ++i) {
    Answer other = many[i];
    // How often a validation asks for more time is the clock's.
    const auto clock = static_cast<std::size_t>(host::SeamFunction::confd_data_set_timeout);
    other.calls[clock] = one[i].calls[clock];
    EXPECT_EQ(to_bytes(one[i]), to_bytes(other)) << i;
  }
}

TEST(Ask, a_commit_that_cannot_be_made_is_told) {
  const maintenance::CommitRow row{1, [](std::size_t) -> maintenance::Commit { throw std::runtime_error("torn"); }};
  const Answer answer = ask_all(plugin_file(), row).front();
  EXPECT_EQ(answer.end, AnswerEnd::not_decided);
  EXPECT_EQ(answer.failure, "torn");
}

TEST(Ask, a_file_that_is_no_library_is_an_error) {
  const element::Schema schema;
  EXPECT_THROW(ask_all(SOURCE_DIR "/README.md", drawn(schema, 1)), host::LoadError);
}

}  // namespace
