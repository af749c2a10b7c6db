#ifndef SERVE_SERVICE_H
#define SERVE_SERVICE_H

#include <filesystem>
#include <optional>

#include "process/interrupts.h"
#include "serve/event_log.h"
#include "serve/folders.h"
#include "serve/line_queue.h"
#include "serve/netconf_agent.h"
#include "serve/private_sshd.h"
#include "serve/servant.h"

namespace serve {

/// An agent and the sshd in front of it, while they run.
class Service {
 public:
  /// `lines` is where the log's events go.
  Service(EventLog &log, LineQueue &lines, const process::Interrupts &interrupts)
      : log_(log), lines_(lines), interrupts_(interrupts) {}

  /// Starts the one, then the other, each when the one before is ready. Throws ServeError where one does not get ready,
  /// with what it said, and process::Interrupted.
  void start(const ServantStart &agent, const ServantStart &sshd);

  /// Passes on what they say until a signal asks this process to end, which it throws, process::Interrupted. Throws
  /// ServeError where one of them ends by itself.
  void run();

  /// Ends both, waits for them and for the sessions, and ends those that take too long.
  void end();

 private:
  bool step(int milliseconds);
  void wait_for(Servant &servant, const char *name, const bool &is_ready);
  static bool is_over(const std::optional<Servant> &servant) { return !servant || servant->is_at_end(); }
  [[noreturn]] static void fail(Servant &servant, const char *name);
  void take_agent_line(const std::string &line);
  void take_sshd_line(const std::string &line);

  EventLog &log_;
  LineQueue &lines_;
  const process::Interrupts &interrupts_;
  std::optional<Servant> agent_;
  std::optional<Servant> sshd_;
  bool agent_is_ready_ = false;
  bool sshd_is_ready_ = false;
  bool heeds_signals_ = true;
};

}  // namespace serve

#endif
