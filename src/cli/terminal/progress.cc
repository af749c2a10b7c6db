#include "cli/terminal/progress.h"

#include <utility>

namespace cli {
namespace {

constexpr std::chrono::milliseconds kSilence{1000};
constexpr std::chrono::milliseconds kBetweenOnTerminal{200};
constexpr std::chrono::milliseconds kBetweenLines{5000};

/// To the start of the line, which is cleared.
constexpr const char *kWriteOver = "\r\x1b[K";

}  // namespace

Progress::Progress(std::ostream &out, bool is_terminal, std::function<Clock::time_point()> now)
    : out_(out), is_terminal_(is_terminal), now_(std::move(now)), next_(now_() + kSilence) {}

Progress::~Progress() { clear(); }

void Progress::update(const std::function<std::string()> &text) {
  const Clock::time_point now = now_();
  if (now < next_) return;
  next_ = now + (is_terminal_ ? kBetweenOnTerminal : kBetweenLines);
  if (is_terminal_) {
    out_ << kWriteOver << text() << std::flush;
    stands_on_line_ = true;
  } else {
    out_ << text() << '\n' << std::flush;
  }
}

void Progress::clear() {
  if (stands_on_line_) out_ << kWriteOver << std::flush;
  stands_on_line_ = false;
}

}  // namespace cli
