// The subsystem that sshd starts for each NETCONF session: passes on what the client and the agent say to each other.
//
// usage: vpnval-netconf-subsystem SOCKET PORT
//
// It takes the place of the agent's own. The agent leaves lying what it reads in one piece with the greeting of a
// connection or with a client's hello, until the next message comes: a client that waits for a reply to its first
// request would wait for ever. So each of these two is handed over alone.

#include <fmt/format.h>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>

#include "process/descriptor.h"

extern "C" {
#include "agt.h"
}

namespace {

constexpr std::string_view kEndOfMessage = "]]>]]>";
constexpr int kPauseMilliseconds = 1;

/// The agent says that it runs shortly before it listens.
constexpr int kConnectAttempts = 10'000;

void pause_shortly() { poll(nullptr, 0, kPauseMilliseconds); }

process::Descriptor connect_to(const std::string &path) {
  sockaddr_un place{};
  place.sun_family = AF_UNIX;
  if (path.size() >= sizeof place.sun_path) return process::Descriptor();
  std::memcpy(place.sun_path, path.c_str(), path.size() + 1);
  for (int attempt = 0; attempt < kConnectAttempts; ++attempt) {
    process::Descriptor agent(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the sockets' way
    if (connect(agent.number(), reinterpret_cast<const sockaddr *>(&place), sizeof place) == 0) return agent;
    if (errno != ENOENT && errno != ECONNREFUSED) break;
    pause_shortly();
  }
  return process::Descriptor();
}

bool write_all(int descriptor, std::string_view data) {
  while (!data.empty()) {
    const ssize_t count = write(descriptor, data.data(), data.size());
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) data.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

/// Adds what can be read to the text; false at the end.
bool read_more(int descriptor, std::string &text) {
  std::array<char, 1 << 16> buffer{};
  ssize_t count = 0;
  do count = read(descriptor, buffer.data(), buffer.size());
  while (count < 0 && errno == EINTR);
  if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

/// Hands something over to the agent and waits until it has taken it, or is gone.
bool hand_over_alone(int agent, std::string_view data) {
  if (!write_all(agent, data)) return false;
  for (;;) {
    int left = 0;
    if (ioctl(agent, SIOCOUTQ, &left) != 0) return false;
    if (left == 0) return true;
    pollfd ended{agent, POLLRDHUP, 0};
    if (poll(&ended, 1, kPauseMilliseconds) > 0 && (ended.revents & (POLLHUP | POLLERR)) != 0) return false;
  }
}

bool pass_on(int from, int to) {
  std::string text;
  if (!read_more(from, text)) return false;
  return write_all(to, text);
}

/// The client's hello, and what stands behind it.
bool hand_over_hello(int agent) {
  std::string said;
  while (said.find(kEndOfMessage) == std::string::npos) {
    if (!read_more(STDIN_FILENO, said)) return false;
  }
  const std::size_t size = said.find(kEndOfMessage) + kEndOfMessage.size();
  return hand_over_alone(agent, std::string_view(said).substr(0, size)) &&
         write_all(agent, std::string_view(said).substr(size));
}

std::string variable(const char *name) {
  const char *value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// As the agent's own subsystem greets it.
std::string greeting(const std::string &port) {
  const std::string connection = variable("SSH_CONNECTION");
  return fmt::format(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ncx-connect xmlns=\"http://netconfcentral.org/ns/yuma-ncx\" "
      "version=\"1\" user=\"{}\" address=\"{}\" magic=\"{}\" transport=\"ssh\" port=\"{}\" />\n{}",
      variable("USER"), connection.substr(0, connection.find(' ')), NCX_SERVER_MAGIC, port, kEndOfMessage);
}

}  // namespace

int main(int argc, char **argv) {
  constexpr int unavailable = 69;
  if (argc != 3) return 64;
  const process::Descriptor agent = connect_to(argv[1]);
  if (!agent.is_open() || !hand_over_alone(agent.number(), greeting(argv[2]))) {
    std::fprintf(stderr, "%s: the agent cannot be reached\n", argv[1]);
    return unavailable;
  }
  std::thread replies([&agent] {
    while (pass_on(agent.number(), STDOUT_FILENO)) continue;
    // The other thread may be waiting for the client.
    std::_Exit(0);
  });
  if (hand_over_hello(agent.number())) {
    while (pass_on(STDIN_FILENO, agent.number())) continue;
  }
  // The agent ends the session when it has answered what it was asked.
  shutdown(agent.number(), SHUT_WR);
  replies.join();
}
