#include "process/batch.h"

#include <poll.h>

#include <cerrno>
#include <list>
#include <system_error>
#include <utility>

#include "process/interrupts.h"

namespace process {
namespace {

constexpr timespec kLongestWait{0, 250'000'000};

/// How often a start is tried, a wait apart, while no child is running whose end could make room: half a minute.
constexpr int kMostFailedStarts = 120;

/// Descriptors, processes or memory have run out: what another process, or a child, gives back may be enough.
bool is_shortage(const std::error_code &error) {
  return error == std::errc::too_many_files_open || error == std::errc::too_many_files_open_in_system ||
         error == std::errc::resource_unavailable_try_again || error == std::errc::not_enough_memory;
}

struct Running {
  Running(std::size_t index_in_batch, const Batch &batch, const sigset_t &mask)
      : index(index_in_batch), started(batch.now()), child(batch.program, batch.arguments[index], mask) {}

  std::size_t index;
  std::chrono::steady_clock::time_point started;
  Child child;

  bool is_at_end() const { return !child.out().is_open() && !child.err().is_open(); }
};

class Runner {
 public:
  Runner(const Batch &batch, const BatchEvents &events) : batch_(batch), events_(events) {}

  void run() {
    start_next();
    while (!is_done()) {
      wait();
      interrupts_.throw_if_any();
      finish_those_at_end();
      start_next();
      events_.waiting();
    }
  }

 private:
  /// Starts as many as there may be. Where the system has no room for one more now, the rest wait.
  void start_next() {
    while (running_.size() < batch_.jobs && next_ < batch_.arguments.size() && start(next_)) ++next_;
  }

  /// False where it is to be tried again later.
  bool start(std::size_t index) {
    try {
      running_.emplace_back(index, batch_, interrupts_.mask_before());
    } catch (const std::system_error &error) {
      if (may_pass(error.code())) return false;
      Result result;
      result.not_started = error.what();
      events_.finished(index, std::move(result));
    }
    failed_starts_ = 0;
    return true;
  }

  /// The end of a child makes room. Without one, other processes may make it, but not for descriptors of this one.
  bool may_pass(const std::error_code &error) {
    if (!is_shortage(error)) return false;
    return !running_.empty() || (error != std::errc::too_many_files_open && ++failed_starts_ < kMostFailedStarts);
  }

  bool is_done() const { return running_.empty() && next_ == batch_.arguments.size(); }

  /// Reads what the children have written, or comes back after a while. Waits for open descriptors alone: the system
  /// refuses to wait at more places than a process may have descriptors.
  void wait() {
    std::vector<pollfd> places;
    for (const Running &running : running_) {
      for (const Descriptor *descriptor : {&running.child.out(), &running.child.err()})
        if (descriptor->is_open()) places.push_back({descriptor->number(), POLLIN, 0});
    }
    const int ready = ppoll(places.data(), places.size(), &kLongestWait, &interrupts_.mask_before());
    if (ready < 0 && errno != EINTR) throw std::system_error(errno, std::generic_category(), "waiting for processes");
    if (ready <= 0) return;
    auto place = places.cbegin();
    for (Running &running : running_) {
      if (running.child.out().is_open() && place++->revents != 0) running.child.read_out();
      if (running.child.err().is_open() && place++->revents != 0) running.child.read_err();
    }
  }

  void finish_those_at_end() {
    for (Running &running : running_) {
      if (running.is_at_end()) finish(running);
    }
    running_.remove_if([](const Running &running) { return running.is_at_end(); });
  }

  void finish(Running &running) {
    Result result = running.child.finish();
    result.seconds = std::chrono::duration<double>(batch_.now() - running.started).count();
    events_.finished(running.index, std::move(result));
  }

  const Batch &batch_;
  const BatchEvents &events_;
  Interrupts interrupts_;
  std::size_t next_ = 0;
  int failed_starts_ = 0;  ///< in a row, while no child was running
  std::list<Running> running_;
};

}  // namespace

void run_all(const Batch &batch, const BatchEvents &events) { Runner(batch, events).run(); }

}  // namespace process
