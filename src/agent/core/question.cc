#include "agent/core/question.h"

#include <fmt/format.h>

#include <optional>
#include <system_error>

#include "agent/core/limited_child.h"

namespace agent {
namespace {

using Clock = std::chrono::steady_clock;

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
    if (const std::optional<process::Result> result = run_within(settings.limit, settings.program, arguments)) {
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
