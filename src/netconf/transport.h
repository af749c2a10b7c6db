#ifndef NETCONF_TRANSPORT_H
#define NETCONF_TRANSPORT_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace netconf {

/// A session that cannot go on; what() says why, without the other side's name.
class SessionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The two streams of bytes between a client and its server.
class Transport {
 public:
  virtual ~Transport() = default;

  /// Waits for bytes and puts at least one and at most `size` into the buffer; 0: the other side has ended the
  /// connection. Throws SessionError where it is silent for too long.
  virtual std::size_t read(char *buffer, std::size_t size) = 0;

  /// Sends all of it. A connection that has ended is left for read() to tell.
  virtual void write(std::string_view bytes) = 0;

  /// Why the connection has ended, where that is known; empty: it is not. To be called after its end.
  virtual std::string end_reason() = 0;
};

}  // namespace netconf

#endif
