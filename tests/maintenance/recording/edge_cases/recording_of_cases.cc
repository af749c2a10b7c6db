// Linked into a test program, it records each test's calls of the platform. The tests themselves tell whether the
// platform saw and answered what it does without a recorder.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <map>

#include "maintenance/hooks/library_slots.h"
#include "maintenance/recorder/recorded_call.h"
#include "maintenance/recorder/replacements.h"
#include "maintenance/recording/decode.h"
#include "maintenance/recording/encode.h"
#include "tests/support/platform.h"

extern int confd_errno;

namespace {

/// Its tests free values of types that the model does not have and that are not recorded.
constexpr const char *kTypesNotRecorded = "ScopedObjectTest";

using Counts = std::map<std::string, std::size_t, std::less<>>;

void count(const std::vector<recording::Call> &calls, Counts &counts) {
  for (const recording::Call &call : calls) {
    ++counts[std::string(recording::name(call.function))];
    for (const recording::Callback &callback : call.callbacks) count(callback.calls, counts);
  }
}

/// Has all calls of the platform in this program recorded, those of the tests as well as those of the validation
/// library.
void hook_this_program() {
  const hooks::Addresses replacements = recorder::all_replacements();
  recorder::hooked.error_number = &confd_errno;
  for (const hooks::Slot &slot : hooks::read_slots(::dlopen(nullptr, RTLD_NOW)).slots) {
    const auto function = hooks::function_of(slot.symbol);
    if (!function) continue;
    const auto number = static_cast<std::size_t>(*function);
    recorder::hooked.originals[number] = *slot.address;
    *slot.address = replacements[number];
  }
}

class RecordingOfCases : public testing::EmptyTestEventListener {
  void OnTestProgramStart(const testing::UnitTest & /*program*/) override { hook_this_program(); }

  void OnTestStart(const testing::TestInfo & /*test*/) override {
    before_ = scripted::Platform::calls_of_process();
    recorder::tape().start({"the test program", "0"}, {}, nullptr, nullptr);
  }

  void OnTestEnd(const testing::TestInfo &test) override {
    const std::int32_t verdict = 0;
    recorder::tape().stop(&verdict);
    if (!recorder::tape().is_whole()) {
      EXPECT_EQ(std::string(test.test_suite_name()), kTypesNotRecorded) << recorder::tape().problem();
      return;
    }
    const std::string bytes(recorder::tape().writer().bytes());
    const recording::Recording recording = recording::decode(bytes);
    EXPECT_EQ(recording::encode(recording), bytes);
    Counts recorded;
    count(recording.calls, recorded);
    for (const auto &[function, calls] : scripted::Platform::calls_of_process()) {
      if (!recording::function_named(function)) continue;
      EXPECT_EQ(recorded[function], calls - before_[function]) << function;
    }
  }

  Counts before_;
};

const bool is_recorded = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new RecordingOfCases);
  return true;
}();

}  // namespace
