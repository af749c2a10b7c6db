#ifndef NETCONF_SESSION_H
#define NETCONF_SESSION_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "netconf/message_reader.h"
#include "netconf/transport.h"

namespace netconf {

/// A client's session. Every function throws SessionError where the server refuses, is silent, or does not speak
/// NETCONF; the session cannot be used after that.
class Session {
 public:
  /// Is given the bytes of a reply as they come.
  using Sink = std::function<void(std::string_view)>;

  /// Exchanges hellos. The transport must outlive the object.
  explicit Session(Transport &transport);

  bool has_candidate() const;

  /// Asks for a whole configuration, "running" or "candidate", and gives `sink` the reply, an rpc-reply, which is
  /// complete and without errors when the function returns.
  void get_config(std::string_view datastore, const Sink &sink);

  /// Ends the session in the server.
  void close();

 private:
  std::string read_hello();
  void take_hello(const std::string &text);
  std::string send(std::string_view operation);

  Transport &transport_;
  MessageReader reader_;
  Framing framing_ = Framing::end_of_message;
  std::vector<std::string> capabilities_;
  unsigned last_message_id_ = 0;
};

}  // namespace netconf

#endif
