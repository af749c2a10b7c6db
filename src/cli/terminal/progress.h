#ifndef CLI_TERMINAL_PROGRESS_H
#define CLI_TERMINAL_PROGRESS_H

#include <chrono>
#include <functional>
#include <ostream>
#include <string>

namespace cli {

/// Tells how far something is, once it has lasted for a second: on a terminal in one line that is written over and is
/// gone at the end, elsewhere in a line every few seconds.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;

  Progress(std::ostream &out, bool is_terminal, std::function<Clock::time_point()> now);
  ~Progress();
  Progress(const Progress &) = delete;
  Progress &operator=(const Progress &) = delete;

  /// Asks for the text where it is time to tell.
  void update(const std::function<std::string()> &text);

  /// Makes room on a terminal for other text.
  void clear();

 private:
  std::ostream &out_;
  bool is_terminal_;
  std::function<Clock::time_point()> now_;
  Clock::time_point next_;
  bool stands_on_line_ = false;
};

}  // namespace cli

#endif
