#include "cli/progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace std::chrono_literals;

/// Tells progress at these times after the begin, call and fault counts growing, and gives what was written by then and
/// at the end.
std::string told_at(bool is_terminal, const std::vector<std::chrono::milliseconds> &times) {
  cli::Progress::Clock::time_point now{};
  std::ostringstream out;
  {
    cli::Progress progress(out, is_terminal, [&now] { return now; });
    for (std::size_t i = 0; i < times.size(); ++i) {
      now = cli::Progress::Clock::time_point(times[i]);
      progress.tell(100 * (i + 1), i);
    }
  }
  return out.str();
}

TEST(Progress, a_search_of_less_than_a_second_says_nothing) {
  EXPECT_EQ(told_at(true, {0ms, 500ms, 999ms}), "");
  EXPECT_EQ(told_at(false, {0ms, 500ms, 999ms}), "");
}

TEST(Progress, on_a_terminal_one_line_is_written_over_and_gone_at_the_end) {
  EXPECT_EQ(told_at(true, {500ms, 1000ms, 1100ms, 1200ms}),
            "\r\x1b[Ksearching: 200 calls of the library, faults found: 1"
            "\r\x1b[Ksearching: 400 calls of the library, faults found: 3"
            "\r\x1b[K");
}

TEST(Progress, elsewhere_a_line_comes_every_five_seconds) {
  EXPECT_EQ(told_at(false, {500ms, 1000ms, 3000ms, 5999ms, 6000ms, 10999ms, 30000ms, 34999ms}),
            "searching: 200 calls of the library, faults found: 1\n"
            "searching: 500 calls of the library, faults found: 4\n"
            "searching: 700 calls of the library, faults found: 6\n");
}

}  // namespace
