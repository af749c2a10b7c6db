#include "serve/private_sshd.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

#include "serve/folders.h"
#include "serve/serve_error.h"

namespace serve {
namespace {

namespace fs = std::filesystem;

/// Where an sshd that root starts goes while it knows nothing of its peer; its package makes it when it starts one.
constexpr const char *kPrivilegeSeparation = "/run/sshd";

std::string read_file(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw ServeError(fmt::format("{}: cannot be read; expected a file of keys", file.string()));
  return {std::istreambuf_iterator<char>(stream), {}};
}

void make_host_key(const fs::path &key, const fs::path &ssh_keygen) {
  std::error_code unknown;
  if (fs::exists(key, unknown)) return;
  sigset_t none;
  sigemptyset(&none);
  const std::vector<std::string> arguments{"-q", "-t", "ed25519", "-N", "", "-C", "vpnval serve", "-f", key.string()};
  process::Child child(ssh_keygen, arguments, none);
  while (child.out().is_open()) child.read_out();
  while (child.err().is_open()) child.read_err();
  const process::Result result = child.finish();
  if (result.signal == 0 && result.exit_status == 0) return;
  throw ServeError(fmt::format("{}: no key can be made: {}", key.string(), result.err));
}

std::string configuration(const PrivateSshd &sshd, const Tools &tools) {
  const std::string agent =
      fmt::format("{} {} {}", tools.subsystem().string(), sshd.agent_socket.string(), sshd.endpoint.port);
  return fmt::format(
      "ListenAddress {}\n"
      "Port {}\n"
      "HostKey {}\n"
      "AuthorizedKeysFile {}\n"
      "AllowUsers {}\n"
      "AuthenticationMethods publickey\n"
      "PermitRootLogin prohibit-password\n"
      "PasswordAuthentication no\n"
      "KbdInteractiveAuthentication no\n"
      "UsePAM no\n"
      "StrictModes no\n"
      "DisableForwarding yes\n"
      "PermitTTY no\n"
      "PermitUserRC no\n"
      "PrintMotd no\n"
      "PidFile none\n"
      "Subsystem netconf {}\n"
      "ForceCommand {}\n",
      sshd.endpoint.address, sshd.endpoint.port, sshd.host_key.string(), (sshd.folder / "authorized_keys").string(),
      sshd.user, agent, agent);
}

std::string host_name(const Endpoint &endpoint) {
  return endpoint.address == "0.0.0.0" || endpoint.address == "::" ? "localhost" : endpoint.address;
}

std::string known_host(const PrivateSshd &sshd) {
  std::string key = read_file(sshd.host_key.string() + ".pub");
  key.resize(std::min(key.find(' ', key.find(' ') + 1), key.find('\n')));
  return fmt::format("[{}]:{} {}\n", host_name(sshd.endpoint), sshd.endpoint.port, key);
}

}  // namespace

std::string own_public_keys(const fs::path &home) {
  std::string keys;
  std::error_code none;
  for (const auto &entry : fs::directory_iterator(home / ".ssh", none)) {
    if (entry.path().extension() == ".pub") keys += read_file(entry.path()) + "\n";
  }
  return keys;
}

ServantStart prepare_sshd(const PrivateSshd &sshd, const Tools &tools) {
  make_host_key(sshd.host_key, tools.ssh_keygen);
  write_file(sshd.folder / "authorized_keys", read_file(sshd.authorized_keys));
  write_file(sshd.folder / "known_hosts", known_host(sshd));
  write_file(sshd.folder / "sshd_config", configuration(sshd, tools));
  std::error_code ignored;
  if (geteuid() == 0) fs::create_directory(kPrivilegeSeparation, ignored);
  return {tools.sshd,
          {"-D", "-e", "-f", (sshd.folder / "sshd_config").string()},
          {"PATH=/usr/sbin:/usr/bin:/sbin:/bin"},
          tools.setpriv};
}

std::string ssh_command(const PrivateSshd &sshd) {
  return fmt::format("ssh -p {} -o UserKnownHostsFile={} -s {}@{} netconf", sshd.endpoint.port,
                     (sshd.folder / "known_hosts").string(), sshd.user, host_name(sshd.endpoint));
}

}  // namespace serve
