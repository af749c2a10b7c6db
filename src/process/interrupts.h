#ifndef PROCESS_INTERRUPTS_H
#define PROCESS_INTERRUPTS_H

#include <array>
#include <csignal>
#include <optional>

namespace process {

/// A signal that asks this process to end.
struct Interrupted {
  int signal = 0;
};

/// While it lives, SIGHUP, SIGINT, SIGPIPE and SIGTERM end this process only where it waits, so that it can end its
/// children first. A signal that is ignored stays so. One object at a time.
class Interrupts {
 public:
  Interrupts();
  ~Interrupts();
  Interrupts(const Interrupts &) = delete;
  Interrupts &operator=(const Interrupts &) = delete;

  /// The signals that are blocked while a process waits or a child runs: as before.
  const sigset_t &mask_before() const { return mask_before_; }

  /// Throws Interrupted where one of the signals has come.
  void throw_if_any() const;

 private:
  static constexpr std::array<int, 4> kSignals{SIGHUP, SIGINT, SIGPIPE, SIGTERM};

  sigset_t mask_before_{};
  std::array<struct sigaction, kSignals.size()> before_{};
};

/// While it lives, the first SIGINT or SIGTERM asks this process to come to its end, which it does by itself; a second
/// one ends it as usual. A signal that is ignored stays so. One object at a time.
class StopRequest {
 public:
  StopRequest();
  ~StopRequest();
  StopRequest(const StopRequest &) = delete;
  StopRequest &operator=(const StopRequest &) = delete;

  bool has_come() const;

 private:
  static constexpr std::array<int, 2> kSignals{SIGINT, SIGTERM};

  std::array<struct sigaction, kSignals.size()> before_{};
};

}  // namespace process

#endif
