#include "process/interrupts.h"

namespace process {
namespace {

volatile std::sig_atomic_t caught_signal = 0;

void note(int signal) { caught_signal = signal; }

}  // namespace

Interrupts::Interrupts() {
  caught_signal = 0;
  sigset_t blocked;
  sigemptyset(&blocked);
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_handler = note;
    sigaction(kSignals[i], &action, nullptr);
    sigaddset(&blocked, kSignals[i]);
  }
  pthread_sigmask(SIG_BLOCK, &blocked, &mask_before_);
}

Interrupts::~Interrupts() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before_[i], nullptr);
  pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

void Interrupts::throw_if_any() const {
  if (caught_signal != 0) throw Interrupted{caught_signal};
}

StopRequest::StopRequest() {
  caught_signal = 0;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_handler = note;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(kSignals[i], &action, nullptr);
  }
}

StopRequest::~StopRequest() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before_[i], nullptr);
}

bool StopRequest::has_come() const { return caught_signal != 0; }

}  // namespace process
