#ifndef SERVE_EVENT_LOG_H
#define SERVE_EVENT_LOG_H

#include <functional>
#include <string>

namespace serve {

enum class LogFormat { text, json };

/// What happens to an element, a line each: for people, or as JSON.
class EventLog {
 public:
  using Sink = std::function<void(const std::string &line)>;

  /// `sink` takes each event, without an end of line; for people it may be of several lines. `time` gives the time of
  /// day as text.
  EventLog(Sink sink, LogFormat format, std::function<std::string()> time)
      : sink_(std::move(sink)), format_(format), time_(std::move(time)) {}

  /// The element is served: the line for ssh, and what an inventory of Ansible needs.
  void ready(const std::string &ssh, const std::string &address, int port, const std::string &user);
  /// A line of the agent: sessions that begin and end, edits, and what our module writes; the rest is passed over.
  void agent_line(const std::string &line);
  /// A line of the sshd: who comes in, and who is refused.
  void sshd_line(const std::string &line);

 private:
  void write(const std::string &event, const std::string &text);
  void take_answer(const std::string &line);

  Sink sink_;
  LogFormat format_;
  std::function<std::string()> time_;
};

/// The event that tells of lines which nobody read in time.
std::string dropped_event(LogFormat format, std::size_t count, const std::string &time);

}  // namespace serve

#endif
