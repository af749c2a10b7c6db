#ifndef SERVE_EVENT_LOG_H
#define SERVE_EVENT_LOG_H

#include <functional>
#include <ostream>
#include <string>

namespace serve {

enum class LogFormat { text, json };

/// What happens to an element, a line each: for people, or as JSON.
class EventLog {
 public:
  /// `time` gives the time of day as text.
  EventLog(std::ostream &out, LogFormat format, std::function<std::string()> time)
      : out_(out), format_(format), time_(std::move(time)) {}

  /// The element is served: the line for ssh, and what an inventory of Ansible needs.
  void ready(const std::string &ssh, const std::string &address, int port, const std::string &user);
  /// A line of the agent: sessions that begin and end, edits, and what our module writes; the rest is passed over.
  void agent_line(const std::string &line);
  /// A line of the sshd: who comes in, and who is refused.
  void sshd_line(const std::string &line);

 private:
  void write(const std::string &event, const std::string &text);
  void take_answer(const std::string &line);

  std::ostream &out_;
  LogFormat format_;
  std::function<std::string()> time_;
};

}  // namespace serve

#endif
