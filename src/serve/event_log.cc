#include "serve/event_log.h"

#include <fmt/format.h>

#include <array>
#include <nlohmann/json.hpp>

namespace serve {
namespace {

using nlohmann::json;

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

std::string dumped(const json &line) { return line.dump(-1, ' ', false, json::error_handler_t::replace); }

std::string finding_text(const json &finding) {
  const std::string rule = finding.value("rule", "");
  return fmt::format("\n    {}{} ({})", rule.empty() ? "" : rule + ": ", finding.value("message", ""),
                     finding.value("path", ""));
}

std::string answer_text(const json &answer) {
  std::string text = fmt::format("session {} ({}): {} {}", answer.value("session", 0), answer.value("user", ""),
                                 answer.value("event", ""), answer.value("decision", ""));
  if (answer.contains("failure")) text += fmt::format("\n    {}", answer.value("failure", ""));
  for (const json &finding : answer.value("findings", json::array())) text += finding_text(finding);
  return text;
}

}  // namespace

void EventLog::ready(const std::string &ssh, const std::string &address, int port, const std::string &user) {
  if (format_ == LogFormat::json) {
    const json line{{"time", time_()},    {"event", "ready"}, {"ssh", ssh},
                    {"address", address}, {"port", port},     {"user", user}};
    out_ << dumped(line) << '\n' << std::flush;
    return;
  }
  out_ << fmt::format(
              "{}\n"
              "element ansible_host={} ansible_port={} ansible_user={} ansible_connection=ansible.netcommon.netconf\n",
              ssh, address, port, user)
       << std::flush;
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
    out_ << dumped({{"time", time_()}, {"event", event}, {"text", text}}) << '\n' << std::flush;
  } else {
    out_ << fmt::format("{} {}\n", time_(), text) << std::flush;
  }
}

void EventLog::take_answer(const std::string &line) {
  json answer = json::parse(line, nullptr, false);
  if (answer.is_discarded() || !answer.is_object()) return;
  if (format_ == LogFormat::json) {
    answer["time"] = time_();
    out_ << dumped(answer) << '\n' << std::flush;
  } else {
    out_ << fmt::format("{} {}\n", time_(), answer_text(answer)) << std::flush;
  }
}

}  // namespace serve
