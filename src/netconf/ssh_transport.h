#ifndef NETCONF_SSH_TRANSPORT_H
#define NETCONF_SSH_TRANSPORT_H

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "netconf/transport.h"
#include "process/child.h"
#include "process/interrupts.h"

namespace netconf {

struct SshTarget {
  std::filesystem::path ssh;  ///< the program
  std::string host;           ///< as ssh takes it: also with a user, or a name of the operator's configuration
  int port = 0;
};

/// A connection to a server's NETCONF subsystem through the system's ssh: keys, agents, jump hosts and known hosts are
/// those of the operator, and what ssh has to ask it asks on the terminal.
class SshTransport : public Transport {
 public:
  /// Starts ssh; a `silence` of the server that lasts longer is an error. Throws std::system_error.
  SshTransport(const SshTarget &target, std::chrono::milliseconds silence, const process::Interrupts &interrupts);

  /// Throws process::Interrupted, too, where a signal asks this process to end.
  std::size_t read(char *buffer, std::size_t size) override;
  void write(std::string_view bytes) override;
  std::string end_reason() override;

  /// Ends the connection and waits for the end of ssh.
  void close();

 private:
  void wait(int descriptor, short events);
  const process::Result &finish();

  std::chrono::milliseconds silence_;
  const process::Interrupts &interrupts_;
  process::Child child_;
  std::optional<process::Result> result_;
};

}  // namespace netconf

#endif
