#include "agent/core/limited_child.h"

#include <poll.h>

#include <array>
#include <cerrno>

namespace agent {

std::optional<process::Result> run_within(std::chrono::milliseconds limit, const std::filesystem::path &program,
                                          const std::vector<std::string> &arguments) {
  using Clock = std::chrono::steady_clock;
  sigset_t none;
  sigemptyset(&none);
  process::Child child(program, arguments, none);
  const Clock::time_point end = Clock::now() + limit;
  while (child.out().is_open() || child.err().is_open()) {
    std::array<pollfd, 2> places{pollfd{child.out().number(), POLLIN, 0}, pollfd{child.err().number(), POLLIN, 0}};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    if (left <= 0) return std::nullopt;
    if (poll(places.data(), places.size(), static_cast<int>(left)) < 0 && errno != EINTR) return std::nullopt;
    if (places[0].revents != 0) child.read_out();
    if (places[1].revents != 0) child.read_err();
  }
  return child.finish();
}

}  // namespace agent
