#ifndef SERVE_PRIVATE_SSHD_H
#define SERVE_PRIVATE_SSHD_H

#include <filesystem>
#include <string>
#include <vector>

#include "serve/endpoint.h"
#include "serve/servant.h"
#include "serve/tools.h"

namespace serve {

/// An sshd of this process's user alone: with a configuration, a host key and authorised keys of its own, which gives
/// who has a key the NETCONF agent and nothing else. Nothing of the machine's own sshd is read or touched.
struct PrivateSshd {
  Endpoint endpoint;
  std::filesystem::path folder;           ///< for its files
  std::filesystem::path host_key;         ///< made where it is not there
  std::filesystem::path authorized_keys;  ///< a file to copy
  std::filesystem::path agent_socket;
  std::string user;
};

/// The files of public keys in the user's own folder of ssh, joined into one text; empty where there are none.
std::string own_public_keys(const std::filesystem::path &home);

/// Writes the configuration, and the host's public key as known_hosts, into the folder. Throws ServeError.
ServantStart prepare_sshd(const PrivateSshd &sshd, const Tools &tools);

/// The line with which ssh reaches the agent.
std::string ssh_command(const PrivateSshd &sshd);

}  // namespace serve

#endif
