#include "maintenance/reconstruction/rebuilt_commit.h"

#include <gtest/gtest.h>

#include "element/input/configuration.h"
#include "element/output/configuration_writer.h"
#include "maintenance/transcript/replay_report.h"
#include "source_dir.h"
#include "tests/maintenance/recording/recorded_run.h"
#include "tests/support/build_under_test.h"

namespace {

using recording::Recording;

/// In which way the library says another thing to the commit than to what was recorded. Empty where in none.
std::string difference(const Recording &recording, const reconstruction::RebuiltCommit &rebuilt) {
  std::string text;
  for (const std::string &line : told_apart([&]() -> std::vector<std::string> {
         const auto verdict = reconstruction::asked_about(rebuilt.commit, recording, plugin_file());
         const transcript::CommitAnswer answer = transcript::commit_answer(recording, verdict);
         if (answer.is_same) return {};
         return {transcript::commit_text(recording, "commit", rebuilt.made_up, answer)};
       })) {
    text += line + "\n";
  }
  return text;
}

// What a recording knows is enough for the same verdict, whether the point accepted, warned or rejected. Each takes a
// process, which a sanitizer makes ten times as dear.
TEST(RebuiltCommit, of_every_point_of_every_example_draws_the_same_verdict) {
  const element::Schema schema;
  std::size_t folders = 0;
  std::size_t count = 0;
  for (const auto &folder : std::filesystem::directory_iterator(SOURCE_DIR "/examples")) {
    const bool is_passed_over = is_sanitized() && folders++ % 8 != 0;
    if (!folder.is_directory() || is_passed_over) continue;
    for (const Recording &recording : recordings_of(schema, folder.path().filename())) {
      const reconstruction::RebuiltCommit rebuilt = reconstruction::rebuild_commit(recording, schema);
      EXPECT_EQ(difference(recording, rebuilt), "") << folder.path();
      const std::string text = write_configuration(rebuilt.commit.candidate, element::InputFormat::xml);
      EXPECT_NO_THROW(element::parse_configuration(schema, text, "rebuilt")) << folder.path();
      ++count;
    }
  }
  EXPECT_GT(count, is_sanitized() ? 10U : 150U);
}

TEST(RebuiltCommit, tells_what_was_made_up) {
  const element::Schema schema;
  const std::vector<Recording> recordings = recordings_of(schema, "pseudowires-above-limit");
  const reconstruction::RebuiltCommit rebuilt = reconstruction::rebuild_commit(recordings.back(), schema);
  ASSERT_EQ(rebuilt.made_up.size(), 2U);
  EXPECT_EQ(rebuilt.made_up[0], "1024 neighbours of VPN unknown-pseudowires, of which the recording knows the number");
  EXPECT_EQ(rebuilt.made_up[1], "pw-ids from 4200000 on, which were not read");
}

}  // namespace
