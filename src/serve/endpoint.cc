#include "serve/endpoint.h"

#include <arpa/inet.h>
#include <fmt/format.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <system_error>

#include "process/descriptor.h"
#include "serve/serve_error.h"

namespace serve {
namespace {

constexpr int kLargestPort = 65535;

struct SocketAddress {
  sockaddr_storage storage{};
  socklen_t size = 0;

  sockaddr *get() { return reinterpret_cast<sockaddr *>(&storage); }  // NOLINT(*-reinterpret-cast): the sockets' way
};

bool fill(SocketAddress &socket_address, const Endpoint &endpoint) {
  sockaddr_in v4{};
  v4.sin_family = AF_INET;
  v4.sin_port = htons(static_cast<std::uint16_t>(endpoint.port));
  if (inet_pton(AF_INET, endpoint.address.c_str(), &v4.sin_addr) == 1) {
    std::memcpy(&socket_address.storage, &v4, sizeof v4);
    socket_address.size = sizeof v4;
    return true;
  }
  sockaddr_in6 v6{};
  v6.sin6_family = AF_INET6;
  v6.sin6_port = htons(static_cast<std::uint16_t>(endpoint.port));
  if (inet_pton(AF_INET6, endpoint.address.c_str(), &v6.sin6_addr) != 1) return false;
  std::memcpy(&socket_address.storage, &v6, sizeof v6);
  socket_address.size = sizeof v6;
  return true;
}

int port_of(SocketAddress &socket_address) {
  if (socket_address.storage.ss_family == AF_INET) {
    sockaddr_in v4{};
    std::memcpy(&v4, &socket_address.storage, sizeof v4);
    return ntohs(v4.sin_port);
  }
  sockaddr_in6 v6{};
  std::memcpy(&v6, &socket_address.storage, sizeof v6);
  return ntohs(v6.sin6_port);
}

bool parse_port(std::string_view text, int &port) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  return error == std::errc{} && end == text.data() + text.size() && port >= 0 && port <= kLargestPort;
}

[[noreturn]] void refuse(const std::string &text) {
  throw ServeError(
      fmt::format("\"{}\" is no place to listen; expected ADDRESS:PORT, a numeric address and a port up to {}", text,
                  kLargestPort));
}

}  // namespace

bool Endpoint::is_loopback() const { return address.starts_with("127.") || address == "::1"; }

Endpoint parse_endpoint(const std::string &text) {
  Endpoint endpoint;
  if (parse_port(text, endpoint.port)) return endpoint;
  endpoint.port = 0;
  endpoint.address = text;
  const std::size_t colon = text.rfind(':');
  const bool is_bare_v6 = !text.starts_with('[') && text.find(':') != colon;
  if (colon != std::string::npos && !is_bare_v6 && !text.ends_with(']')) {
    if (!parse_port(std::string_view(text).substr(colon + 1), endpoint.port)) refuse(text);
    endpoint.address = text.substr(0, colon);
  }
  if (endpoint.address.starts_with('[') && endpoint.address.ends_with(']')) {
    endpoint.address = endpoint.address.substr(1, endpoint.address.size() - 2);
  }
  SocketAddress checked;
  if (!fill(checked, endpoint)) refuse(text);
  return endpoint;
}

Endpoint free_endpoint(Endpoint endpoint) {
  SocketAddress place;
  if (!fill(place, endpoint)) refuse(endpoint.address);
  const process::Descriptor probe(socket(place.storage.ss_family, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const int yes = 1;
  setsockopt(probe.number(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  if (!probe.is_open() || bind(probe.number(), place.get(), place.size) != 0 || listen(probe.number(), 1) != 0 ||
      getsockname(probe.number(), place.get(), &place.size) != 0) {
    throw ServeError(fmt::format("{} port {}: cannot be listened on: {}", endpoint.address, endpoint.port,
                                 std::generic_category().message(errno)));
  }
  endpoint.port = port_of(place);
  return endpoint;
}

}  // namespace serve
