#include "agent/core/question.h"

#include <fmt/format.h>
#include <poll.h>

#include <array>
#include <cerrno>
#include <optional>
#include <system_error>

namespace agent {
namespace {

using Clock = std::chrono::steady_clock;

/// Reads what the process writes up to its end; nothing where it lasts beyond the limit.
std::optional<process::Result> result_of(process::Child &child, std::chrono::milliseconds limit) {
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

Answer ask_within_limit(const Settings &settings, const std::filesystem::path &running,
                        const std::filesystem::path &candidate) {
  const std::vector<std::string> arguments{"check",
                                           "--format=json",
                                           "--all-faults",
                                           "--budget=" + settings.budget,
                                           "--plugin=" + settings.plugin.string(),
                                           "--element=" + settings.profile.string(),
                                           "--running=" + running.string(),
                                           "--candidate=" + candidate.string()};
  const std::vector<std::string> configurations{running.string(), candidate.string()};
  process::Result failed;
  try {
    sigset_t none;
    sigemptyset(&none);
    process::Child child(settings.program, arguments, none);
    if (const std::optional<process::Result> result = result_of(child, settings.limit)) {
      return read_answer(*result, configurations);
    }
    failed.not_started =
        fmt::format("the library gave no answer for {} s", static_cast<double>(settings.limit.count()) / 1000);
  } catch (const std::system_error &error) {
    failed.not_started = error.what();
  }
  return read_answer(failed, configurations);
}

}  // namespace

Answer ask(const Settings &settings, const std::filesystem::path &running, const std::filesystem::path &candidate) {
  const Clock::time_point begin = Clock::now();
  Answer answer = ask_within_limit(settings, running, candidate);
  answer.seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  return answer;
}

}  // namespace agent
