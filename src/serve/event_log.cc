#include "serve/event_log.h"

#include <fmt/format.h>

#include <array>
#include <optional>

#include "agent/core/event_lines.h"

namespace serve {
namespace {

/// Lines of the agent that are events, by how they begin.
struct KnownLine {
  const char *begin;
  const char *event;
};
constexpr std::array<KnownLine, 4> kAgentLines{{{"Session ", "session"},
                                                {"edit-transaction ", "edit"},
                                                {"  data: ", "edited"},
                                                {"Confirmed", "confirmed-commit"}}};
constexpr std::array<KnownLine, 3> kSshdLines{
    {{"Accepted ", "login"}, {"Connection closed by authenticating", "refused"}, {"Invalid user", "refused"}}};

}  // namespace

void EventLog::ready(const std::string &ssh, const std::string &address, int port, const std::string &user) {
  if (format_ == LogFormat::json) {
    sink_(agent::event_line({{"time", time_()}, {"event", "ready"}, {"ssh", ssh}, {"address", address}, {"user", user}},
                            {{"port", port}}));
    return;
  }
  sink_(fmt::format(
      "{}\n"
      "element ansible_host={} ansible_port={} ansible_user={} ansible_connection=ansible.netcommon.netconf",
      ssh, address, port, user));
}

void EventLog::agent_line(const std::string &line) {
  if (line.starts_with('{')) return take_answer(line);
  for (const auto &[begin, event] : kAgentLines) {
    if (line.starts_with(begin)) return write(event, line);
  }
}

void EventLog::sshd_line(const std::string &line) {
  for (const auto &[begin, event] : kSshdLines) {
    if (line.starts_with(begin)) return write(event, line);
  }
}

void EventLog::write(const std::string &event, const std::string &text) {
  if (format_ == LogFormat::json) {
    sink_(agent::event_line({{"time", time_()}, {"event", event}, {"text", text}}));
  } else {
    sink_(fmt::format("{} {}", time_(), text));
  }
}

void EventLog::take_answer(const std::string &line) {
  if (format_ == LogFormat::json) {
    if (const std::optional<std::string> answer = agent::timed_answer_line(line, time_())) sink_(*answer);
  } else if (const std::optional<std::string> answer = agent::answer_text(line)) {
    sink_(fmt::format("{} {}", time_(), *answer));
  }
}

std::string dropped_event(LogFormat format, std::size_t count, const std::string &time) {
  if (format == LogFormat::text) return fmt::format("{} {} events were dropped: nobody read them", time, count);
  return agent::event_line({{"time", time}, {"event", "dropped"}}, {{"count", count}});
}

}  // namespace serve
