#include "serve/line_queue.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

namespace serve {

void LineQueue::add(const std::string &line) {
  const std::string told = dropped_ == 0 ? "" : dropped_line_(dropped_) + "\n";
  if (waiting_.size() + told.size() + line.size() + 1 > capacity_) {
    ++dropped_;
    return;
  }
  dropped_ = 0;
  waiting_ += told + line + "\n";
  write_ready();
}

bool LineQueue::is_ready(int milliseconds) const {
  pollfd ready = place();
  return ready.fd >= 0 && poll(&ready, 1, milliseconds) > 0;
}

/// The descriptor is shared with others, whom it must block as before. A pipe that is ready takes PIPE_BUF at once.
void LineQueue::write_ready() {
  while (is_ready(0)) {
    const ssize_t count = write(descriptor_, waiting_.data(), std::min<std::size_t>(waiting_.size(), PIPE_BUF));
    if (count >= 0) {
      waiting_.erase(0, static_cast<std::size_t>(count));
    } else if (errno != EINTR && errno != EAGAIN) {
      waiting_.clear();
    } else {
      return;
    }
  }
}

void LineQueue::flush(int milliseconds) {
  if (dropped_ > 0) {
    waiting_ += dropped_line_(dropped_) + "\n";
    dropped_ = 0;
  }
  while (is_ready(milliseconds)) write_ready();
}

}  // namespace serve
