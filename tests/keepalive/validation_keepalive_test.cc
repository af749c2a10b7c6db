// The keep-alive over a clock that the tests set. Each timeline runs in a process of its own, for the moment of the
// last extension belongs to the process.

#include "config_validate_vpn/shared/validation_keepalive.h"

#include <gtest/gtest.h>

#include "tests/support/broken_model.h"
#include "tests/support/build_under_test.h"
#include "tests/support/fake_clock.h"
#include "tests/support/printers.h"

namespace {

using scripted::FakeClock;

struct Timeline {
  const char *name;
  std::vector<double> calls;  ///< seconds after the start of the clock
  const char *extended;       ///< what each call did: nothing "-" or an extension, by its seconds
};

const std::vector<Timeline> timelines{
    {"the first call only starts the interval", {0}, "- "},
    {"the first call starts it whenever it comes", {1000, 1036}, "- - "},
    {"ten seconds apart", {0, 10}, "- - "},
    {"ten seconds apart never add up to an extension before 36", {0, 10, 20, 30}, "- - - - "},
    {"36 seconds are not enough", {0, 36}, "- - "},
    {"nor are they from within a second on", {0.5, 36.5}, "- - "},
    {"a part of a second more is", {0, 36.5}, "- 120 "},
    {"37 seconds are", {0, 37}, "- 120 "},
    {"the interval runs from the last extension, not from the last call", {0, 20, 37}, "- - 120 "},
    {"an extension restarts the interval", {0, 37, 73, 74}, "- 120 - 120 "},
    {"a clock that is set back extends nothing", {100, 0, 99, 136, 137}, "- - - - 120 "},
};

[[noreturn]] void run(const Timeline &timeline) {
  scripted::Platform platform;
  std::string extended;
  for (const double second : timeline.calls) {
    FakeClock::set(second);
    const std::size_t before = platform.timeouts().size();
    const std::int32_t result = validation_keepalive(&platform.context());
    const bool has_extended = platform.timeouts().size() > before;
    extended += has_extended ? std::to_string(platform.timeouts().back()) : "-";
    extended += result == 0 ? " " : "? ";
  }
  std::fprintf(stderr, "did %sand no more\n", extended.c_str());
  std::exit(0);
}

TEST(ValidationKeepaliveTest, extends_once_in_more_than_36_seconds) {
  ASSERT_TRUE(FakeClock::works());
  for (const Timeline &timeline : timelines) {
    SCOPED_TRACE(timeline.name);
    EXPECT_EXIT(run(timeline), testing::ExitedWithCode(0),
                "did " + scripted::literally(timeline.extended) + "and no more");
  }
}

[[noreturn]] void let_the_extension_fail() {
  scripted::Platform platform;
  platform.fail("confd_data_set_timeout", 1);
  for (const double second : {0.0, 37.0, 73.0, 74.0}) {
    FakeClock::set(second);
    std::fprintf(stderr, "%d ", validation_keepalive(&platform.context()));
  }
  std::fprintf(stderr, "after %zu requests\n", platform.count("confd_data_set_timeout"));
  std::exit(0);
}

TEST(ValidationKeepaliveTest, answers_what_the_agent_answers_and_waits_again_also_after_a_failure) {
  EXPECT_EXIT(let_the_extension_fail(), testing::ExitedWithCode(0), "0 -1 0 0 after 2 requests");
}

}  // namespace

int main(int argc, char **argv) {
  FakeClock::restart_program_under(clock_preload(), argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
