#include <gtest/gtest.h>

#include <array>
#include <streambuf>

#include "cli/run.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/failing_allocation.h"
#include "tests/support/build_under_test.h"

namespace {

/// Takes text without an allocation, so that no failure is the stream's own.
class FixedBuffer : public std::streambuf {
 public:
  FixedBuffer() { setp(place_.data(), place_.data() + place_.size()); }
  std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

 private:
  std::array<char, std::size_t{1} << 16> place_{};
};

struct MemoryOutcome {
  int status = 0;
  std::string err;
  bool has_failed = false;  ///< the allocation was reached
};

MemoryOutcome run_with_allocations(const std::vector<std::string> &arguments, long allocations) {
  FixedBuffer out_buffer;
  FixedBuffer err_buffer;
  std::ostream out(&out_buffer);
  std::ostream err(&err_buffer);
  const cli::Environment environment = still_environment(out, err, "/nowhere/bin/vpnval", answering_plugin_file());
  allocations_left = allocations;
  const cli::ExitStatus status = cli::run(arguments, environment);
  const bool has_failed = allocations_left < 0;
  allocations_left = -1;
  return {static_cast<int>(status), std::string(err_buffer.text()), has_failed};
}

/// Has the allocation fail after none, one, two and then ever more, until the command comes to its end.
void expect_memory_is_told(const std::vector<std::string> &arguments) {
  long allocations = 0;
  MemoryOutcome outcome = run_with_allocations(arguments, allocations);
  while (outcome.has_failed) {
    EXPECT_EQ(outcome.status, static_cast<int>(cli::ExitStatus::out_of_memory)) << allocations << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with("vpnval: out of memory\n")) << allocations << outcome.err;
    allocations += 1 + allocations / 10;
    outcome = run_with_allocations(arguments, allocations);
  }
  EXPECT_GT(allocations, 1000);
}

TEST(OutOfMemory, is_told_as_such_and_not_as_a_fault_of_the_input) {
  const CommitFolder folder;
  folder.configure(vpws_group(vpn("east")),
                   vpws_group(vpn("east", R"(, "neighbor": [{"address": "192.0.2.1", "pw-id": 1}])")));
  expect_memory_is_told({"check", "--budget=0", folder.path()});
  expect_memory_is_told({"check", "--budget=0", "--format=junit", folder.path()});
  expect_memory_is_told({"check", "--budget=0", "--format=github", folder.path()});
  expect_memory_is_told({"show", folder.path()});
}

}  // namespace
