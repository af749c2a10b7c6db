#include "serve/line_queue.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "process/descriptor.h"

namespace {

using serve::LineQueue;

/// A pipe as the log's reader sees it.
class Queued : public testing::Test {
 protected:
  Queued() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    reader = process::Descriptor(ends[0]);
    writer = process::Descriptor(ends[1]);
  }

  LineQueue queue(std::size_t capacity) const {
    return {writer.number(), capacity, [](std::size_t count) { return std::to_string(count) + " dropped"; }};
  }

  std::string read_some() const {
    std::array<char, 1 << 16> buffer{};
    return {buffer.data(), static_cast<std::size_t>(read(reader.number(), buffer.data(), buffer.size()))};
  }

  /// Adds lines until the pipe takes no more and so many bytes wait.
  static std::size_t fill(LineQueue &lines, const std::string &line) {
    std::size_t count = 0;
    for (; lines.place().fd < 0; ++count) lines.add(line);
    return count;
  }

  process::Descriptor reader;
  process::Descriptor writer;
};

TEST_F(Queued, lines_are_written_at_once_where_there_is_room) {
  LineQueue lines = queue(100);
  lines.add("one");
  lines.add("two");
  EXPECT_EQ(read_some(), "one\ntwo\n");
  EXPECT_LT(lines.place().fd, 0);
}

TEST_F(Queued, lines_that_nobody_reads_wait_and_then_are_dropped_and_counted) {
  const std::string line(999, 'x');
  LineQueue lines = queue(10'000);
  std::size_t count = fill(lines, line);
  for (int i = 0; i < 20; ++i) lines.add(line);
  std::string read;
  for (lines.write_ready(); lines.place().fd >= 0; lines.write_ready()) read += read_some();
  lines.add("again");
  read += read_some();
  const std::size_t whole = static_cast<std::size_t>(std::count(read.begin(), read.end(), '\n')) - 2;
  EXPECT_GE(whole, count);
  EXPECT_TRUE(read.ends_with("x\n" + std::to_string(count + 20 - whole) + " dropped\nagain\n"))
      << read.substr(read.size() - 40);
}

TEST_F(Queued, the_end_waits_for_nobody_who_does_not_read) {
  LineQueue lines = queue(2000);
  fill(lines, std::string(999, 'x'));
  lines.flush(0);
  EXPECT_GE(lines.place().fd, 0);
}

}  // namespace
