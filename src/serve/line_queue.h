#ifndef SERVE_LINE_QUEUE_H
#define SERVE_LINE_QUEUE_H

#include <poll.h>

#include <cstddef>
#include <functional>
#include <string>

namespace serve {

/// Lines on their way to a descriptor that may not be read at times. Nothing here waits for its reader: what is more
/// than the queue holds is dropped, and the reader is told how many lines that were.
class LineQueue {
 public:
  /// `dropped` gives the line that tells of so many lines that were dropped. `capacity` is in bytes.
  LineQueue(int descriptor, std::size_t capacity, std::function<std::string(std::size_t count)> dropped)
      : descriptor_(descriptor), capacity_(capacity), dropped_line_(std::move(dropped)) {}

  /// Adds a line; its end is added to it.
  void add(const std::string &line);

  /// What to wait for; of no descriptor where nothing is to be written.
  pollfd place() const { return {waiting_.empty() ? -1 : descriptor_, POLLOUT, 0}; }

  /// Writes what the descriptor takes at once.
  void write_ready();

  /// Writes the rest, as long as the descriptor takes some of it within `milliseconds`.
  void flush(int milliseconds);

 private:
  bool is_ready(int milliseconds) const;

  int descriptor_;
  std::size_t capacity_;
  std::function<std::string(std::size_t)> dropped_line_;
  std::string waiting_;
  std::size_t dropped_ = 0;
};

}  // namespace serve

#endif
