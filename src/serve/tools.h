#ifndef SERVE_TOOLS_H
#define SERVE_TOOLS_H

#include <filesystem>
#include <string>

namespace serve {

/// The programs of other packages that an element is served with, and our module for the agent.
struct Tools {
  std::filesystem::path netconfd;
  std::filesystem::path sshd;
  std::filesystem::path ssh_keygen;
  std::filesystem::path setpriv;
  std::filesystem::path agent_module;

  /// What sshd starts for a session; it lies beside the module.
  std::filesystem::path subsystem() const { return agent_module.parent_path() / "vpnval-netconf-subsystem"; }
};

/// Looks for them on `search_path` and where systems keep their servers; for the module beside `program`, vpnval
/// itself, in a build or installed under `multiarch`. Throws ServeError, which names all that is missing with its
/// packages.
Tools find_tools(const std::string &search_path, const std::filesystem::path &program, const std::string &multiarch);

}  // namespace serve

#endif
