#include "netconf/ssh_transport.h"

#include <fmt/format.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>

#include "element/input/input_text.h"

namespace netconf {
namespace {

/// What ssh writes where the server has no such subsystem.
constexpr std::string_view kNoSubsystem = "subsystem request failed";

std::vector<std::string> ssh_arguments(const SshTarget &target) {
  // No terminal, no forwarding of anything: the connection carries messages only.
  return {"-T", "-x", "-a", "-p", std::to_string(target.port), "-s", "--", target.host, "netconf"};
}

timespec to_timespec(std::chrono::milliseconds time) { return {time.count() / 1000, time.count() % 1000 * 1'000'000}; }

/// The last line that is no mere warning, as of a host that was not known before.
std::string last_error(std::string_view text) {
  for (text = element::trimmed(text); !text.empty();) {
    const std::size_t begin = text.find_last_of('\n') + 1;
    const std::string_view line = element::trimmed(text.substr(begin));
    if (!line.empty() && !line.starts_with("Warning: ")) return element::one_line(line);
    text = text.substr(0, begin == 0 ? 0 : begin - 1);
  }
  return "";
}

}  // namespace

SshTransport::SshTransport(const SshTarget &target, std::chrono::milliseconds silence,
                           const process::Interrupts &interrupts)
    : silence_(silence),
      interrupts_(interrupts),
      child_(target.ssh, ssh_arguments(target), interrupts.mask_before(), process::Input::written) {}

/// Waits until the descriptor is ready, and takes what ssh says on standard error meanwhile.
void SshTransport::wait(int descriptor, short events) {
  for (;;) {
    std::array<pollfd, 2> places{pollfd{descriptor, events, 0}, pollfd{child_.err().number(), POLLIN, 0}};
    const timespec limit = to_timespec(silence_);
    const int count = ppoll(places.data(), places.size(), &limit, &interrupts_.mask_before());
    interrupts_.throw_if_any();
    if (count == 0) throw SessionError(fmt::format("no answer for {} s", static_cast<double>(silence_.count()) / 1000));
    if (places[1].revents != 0) child_.read_err();
    if (places[0].revents != 0) return;
  }
}

std::size_t SshTransport::read(char *buffer, std::size_t size) {
  while (child_.out().is_open()) {
    wait(child_.out().number(), POLLIN);
    if (const std::size_t count = child_.read_out(buffer, size)) return count;
  }
  return 0;
}

void SshTransport::write(std::string_view bytes) {
  while (!bytes.empty() && child_.out().is_open()) {
    const ssize_t count = send(child_.in().number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      wait(child_.in().number(), POLLOUT);
    } else if (errno != EINTR) {
      return;
    }
  }
}

/// The end of ssh, which comes once its output has ended.
const process::Result &SshTransport::finish() {
  while (child_.err().is_open()) {
    wait(child_.err().number(), POLLIN);
  }
  if (!result_) result_ = child_.finish();
  return *result_;
}

std::string SshTransport::end_reason() {
  const process::Result &result = finish();
  const std::string said = last_error(result.err);
  if (said.find(kNoSubsystem) != std::string::npos) {
    return fmt::format("ssh: {}; the server has no subsystem netconf on this port", said);
  }
  if (!said.empty()) return said.starts_with("ssh:") ? said : "ssh: " + said;
  if (result.signal != 0) return fmt::format("ssh was ended by signal {}", result.signal);
  return result.exit_status == 0 ? "" : fmt::format("ssh ended with status {}", result.exit_status);
}

void SshTransport::close() {
  child_.in().close();
  std::array<char, 4096> rest{};
  while (read(rest.data(), rest.size()) != 0) {
  }
  finish();
}

}  // namespace netconf
