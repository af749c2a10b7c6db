#include "process/batch.h"

#include <poll.h>

#include <list>
#include <system_error>
#include <utility>

#include "process/interrupts.h"

namespace process {
namespace {

constexpr timespec kLongestWait{0, 250'000'000};

struct Running {
  Running(std::size_t index_in_batch, const Batch &batch, const sigset_t &mask)
      : index(index_in_batch), child(batch.program, batch.arguments[index], mask) {}

  std::size_t index;
  Child child;

  bool is_at_end() const { return !child.out().is_open() && !child.err().is_open(); }
};

class Runner {
 public:
  Runner(const Batch &batch, const BatchEvents &events) : batch_(batch), events_(events) {}

  void run() {
    start_next();
    while (!running_.empty()) {
      wait();
      interrupts_.throw_if_any();
      finish_those_at_end();
      start_next();
      events_.waiting();
    }
  }

 private:
  void start_next() {
    for (; running_.size() < batch_.jobs && next_ < batch_.arguments.size(); ++next_) start(next_);
  }

  void start(std::size_t index) {
    try {
      running_.emplace_back(index, batch_, interrupts_.mask_before());
    } catch (const std::system_error &error) {
      Result result;
      result.not_started = error.what();
      events_.finished(index, std::move(result));
    }
  }

  /// Reads what the children have written, or comes back after a while.
  void wait() {
    std::vector<pollfd> places;
    for (const Running &running : running_) {
      places.push_back({running.child.out().number(), POLLIN, 0});
      places.push_back({running.child.err().number(), POLLIN, 0});
    }
    if (ppoll(places.data(), places.size(), &kLongestWait, &interrupts_.mask_before()) <= 0) return;
    auto place = places.begin();
    for (Running &running : running_) {
      if (place++->revents != 0) running.child.read_out();
      if (place++->revents != 0) running.child.read_err();
    }
  }

  void finish_those_at_end() {
    for (Running &running : running_) {
      if (running.is_at_end()) events_.finished(running.index, running.child.finish());
    }
    running_.remove_if([](const Running &running) { return running.is_at_end(); });
  }

  const Batch &batch_;
  const BatchEvents &events_;
  Interrupts interrupts_;
  std::size_t next_ = 0;
  std::list<Running> running_;
};

}  // namespace

void run_all(const Batch &batch, const BatchEvents &events) { Runner(batch, events).run(); }

}  // namespace process
