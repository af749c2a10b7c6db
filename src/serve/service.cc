#include "serve/service.h"

#include <fmt/format.h>

#include <csignal>

#include "serve/serve_error.h"

namespace serve {
namespace {

constexpr const char *kSshdIsReady = "Server listening on ";

/// Far more than either needs on a slow machine; after the second, sessions that do not end are cut.
constexpr int kLongestStart = 120'000;
constexpr int kLongestEnd = 10'000;

constexpr int kStep = 250;

/// After the end, for a reader of the log that is slow.
constexpr int kLongestFlush = 1'000;

timespec to_timespec(int milliseconds) { return {milliseconds / 1000, milliseconds % 1000 * 1'000'000L}; }

}  // namespace

void Service::start(const ServantStart &agent, const ServantStart &sshd) {
  agent_.emplace(agent, interrupts_.mask_before());
  wait_for(*agent_, "netconfd", agent_is_ready_);
  sshd_.emplace(sshd, interrupts_.mask_before());
  wait_for(*sshd_, "sshd", sshd_is_ready_);
}

void Service::wait_for(Servant &servant, const char *name, const bool &is_ready) {
  int waited = 0;
  while (!is_ready) {
    if (servant.has_ended()) fail(servant, name);
    if (waited >= kLongestStart) throw ServeError(fmt::format("{} does not get ready", name));
    if (!step(kStep)) waited += kStep;
  }
}

void Service::run() {
  for (;;) {
    step(-1);
    if (agent_->has_ended()) fail(*agent_, "netconfd");
    if (sshd_->has_ended()) fail(*sshd_, "sshd");
  }
}

void Service::end() {
  heeds_signals_ = false;
  for (const int signal : {SIGTERM, SIGKILL}) {
    if (sshd_) sshd_->send(signal);
    if (agent_) agent_->send(signal);
    for (int waited = 0; waited < kLongestEnd && !(is_over(agent_) && is_over(sshd_));) {
      if (!step(kStep)) waited += kStep;
    }
  }
  agent_.reset();
  sshd_.reset();
  lines_.flush(kLongestFlush);
}

/// Waits for what they say, at most so long, and takes it. False where nothing came.
bool Service::step(int milliseconds) {
  const std::vector<pollfd> agent = agent_ ? agent_->places() : std::vector<pollfd>(3, {-1, 0, 0});
  const std::vector<pollfd> sshd = sshd_ ? sshd_->places() : std::vector<pollfd>(3, {-1, 0, 0});
  std::vector<pollfd> all = agent;
  all.insert(all.end(), sshd.begin(), sshd.end());
  all.push_back(lines_.place());
  const timespec limit = to_timespec(milliseconds);
  const int count = ppoll(all.data(), all.size(), milliseconds < 0 ? nullptr : &limit,
                          heeds_signals_ ? &interrupts_.mask_before() : nullptr);
  if (heeds_signals_) interrupts_.throw_if_any();
  if (count <= 0) return false;
  lines_.write_ready();
  if (agent_) agent_->read({all[0], all[1], all[2]}, [this](const std::string &line) { take_agent_line(line); });
  if (sshd_) sshd_->read({all[3], all[4], all[5]}, [this](const std::string &line) { take_sshd_line(line); });
  return true;
}

void Service::take_agent_line(const std::string &line) {
  if (line.starts_with(kAgentIsReady)) agent_is_ready_ = true;
  log_.agent_line(line);
}

void Service::take_sshd_line(const std::string &line) {
  if (line.starts_with(kSshdIsReady)) sshd_is_ready_ = true;
  log_.sshd_line(line);
}

void Service::fail(Servant &servant, const char *name) {
  const process::Result result = servant.finish();
  const std::string how = result.signal != 0 ? fmt::format("was ended by signal {}", result.signal)
                                             : fmt::format("ended with status {}", result.exit_status);
  throw ServeError(fmt::format("{} {}: {}", name, how, servant.last_line()));
}

}  // namespace serve
