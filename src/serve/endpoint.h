#ifndef SERVE_ENDPOINT_H
#define SERVE_ENDPOINT_H

#include <string>

namespace serve {

/// Where an element listens.
struct Endpoint {
  std::string address = "127.0.0.1";  ///< numeric, IPv4 or IPv6
  int port = 0;                       ///< 0: any that is free

  bool is_loopback() const;
};

/// Reads "ADDRESS:PORT", "[ADDRESS]:PORT", "ADDRESS" or "PORT". Throws ServeError.
Endpoint parse_endpoint(const std::string &text);

/// The endpoint with a port that nobody listens on. Throws ServeError where the port is taken, or the address is not
/// this machine's.
Endpoint free_endpoint(Endpoint endpoint);

}  // namespace serve

#endif
