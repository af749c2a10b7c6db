#ifndef SERVE_SERVANT_H
#define SERVE_SERVANT_H

#include <poll.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "process/child.h"

namespace serve {

/// How a program is started that serves until it is told to end.
struct ServantStart {
  std::filesystem::path program;
  std::vector<std::string> arguments;
  std::vector<std::string> variables;  ///< NAME=VALUE, in place of all that this process has
  std::filesystem::path setpriv;       ///< ends it where this process dies
};

/// A program that runs beside this one, with what it says in lines. Ended with the object.
class Servant {
 public:
  using Line = std::function<void(const std::string &line)>;

  /// Throws std::system_error.
  Servant(const ServantStart &start, const sigset_t &mask);

  /// What to wait for: standard output and standard error, which are open as long as the program or one that it has
  /// started lives, and its end.
  std::vector<pollfd> places() const;
  bool has_ended() const { return !end_.is_open(); }
  bool is_at_end() const { return !child_.out().is_open() && !child_.err().is_open(); }

  /// Takes what stands ready, and calls `line` for each line that is complete, without its end.
  void read(const std::vector<pollfd> &ready, const Line &line);

  void send(int signal) const { child_.send(signal); }
  /// To be called when it has ended.
  process::Result finish() { return child_.finish(); }
  /// The last line that it wrote.
  const std::string &last_line() const { return last_line_; }

 private:
  void take(std::string &rest, std::size_t count, const Line &line);

  process::Child child_;
  process::Descriptor end_;
  std::string out_;  ///< the begin of a line
  std::string err_;
  std::string last_line_;
  std::vector<char> buffer_;
};

}  // namespace serve

#endif
