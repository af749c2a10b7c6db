#ifndef SERVE_NETCONF_AGENT_H
#define SERVE_NETCONF_AGENT_H

#include <filesystem>
#include <string>

#include "agent/core/settings.h"
#include "serve/servant.h"
#include "serve/tools.h"

namespace serve {

/// The NETCONF server that holds the datastores, with our module in it.
struct NetconfAgent {
  std::filesystem::path folder;   ///< for its files; its settings, modules and socket are there
  std::filesystem::path startup;  ///< the configuration that it begins with, which stays as it is; empty: none
  std::string user;               ///< who may do everything
  int port = 0;                   ///< of the sshd in front of it
  agent::Settings settings;       ///< of our module

  /// Where the agent has what it writes over: the configuration that it begins with, its startup configuration.
  std::filesystem::path own_startup() const { return folder / "startup.xml"; }
  std::filesystem::path socket() const { return folder / "agent.sock"; }
};

/// The line of its output when it is ready.
inline constexpr const char *kAgentIsReady = "Running netconfd server";

/// Writes what it needs into the folder. Throws ServeError.
ServantStart prepare_agent(const NetconfAgent &agent, const Tools &tools);

}  // namespace serve

#endif
