#include "cli/terminal/progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace std::chrono_literals;

/// Tells of a step at each of these times after the begin, and gives what was written by then and at the end.
std::string told_at(bool is_terminal, const std::vector<std::chrono::milliseconds> &times) {
  cli::Progress::Clock::time_point now{};
  std::ostringstream out;
  {
    cli::Progress progress(out, is_terminal, [&now] { return now; });
    for (std::size_t i = 0; i < times.size(); ++i) {
      now = cli::Progress::Clock::time_point(times[i]);
      progress.update([i] { return "step " + std::to_string(i); });
    }
  }
  return out.str();
}

TEST(Progress, what_takes_less_than_a_second_says_nothing) {
  EXPECT_EQ(told_at(true, {0ms, 500ms, 999ms}), "");
  EXPECT_EQ(told_at(false, {0ms, 500ms, 999ms}), "");
}

TEST(Progress, on_a_terminal_one_line_is_written_over_and_gone_at_the_end) {
  EXPECT_EQ(told_at(true, {500ms, 1000ms, 1100ms, 1200ms}),
            "\r\x1b[Kstep 1"
            "\r\x1b[Kstep 3"
            "\r\x1b[K");
}

TEST(Progress, makes_room_for_other_text_on_a_terminal) {
  for (const bool is_terminal : {true, false}) {
    cli::Progress::Clock::time_point now{};
    std::ostringstream out;
    cli::Progress progress(out, is_terminal, [&now] { return now; });
    progress.clear();
    now += 2s;
    progress.update([] { return "half"; });
    progress.clear();
    progress.clear();
    EXPECT_EQ(out.str(), is_terminal ? "\r\x1b[Khalf\r\x1b[K" : "half\n");
  }
}

TEST(Progress, elsewhere_a_line_comes_every_five_seconds) {
  EXPECT_EQ(told_at(false, {500ms, 1000ms, 3000ms, 5999ms, 6000ms, 10999ms, 30000ms, 34999ms}),
            "step 1\n"
            "step 4\n"
            "step 6\n");
}

}  // namespace
