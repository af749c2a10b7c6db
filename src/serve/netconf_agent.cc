#include "serve/netconf_agent.h"

#include <fmt/format.h>

#include <system_error>

#include "element/schema/shipped_modules.h"
#include "serve/agent_modules.h"
#include "serve/folders.h"
#include "serve/serve_error.h"

namespace serve {
namespace {

namespace fs = std::filesystem;

fs::path make(const fs::path &folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw ServeError(fmt::format("{}: cannot be written: {}", folder.string(), error.message()));
  return folder;
}

void write_modules(const fs::path &folder) {
  for (const element::ShippedModule &module : element::shipped_modules()) {
    write_file(folder / fmt::format("{}.yang", module.name), std::string(module.text));
  }
  for (const AgentModule &module : agent_modules()) {
    write_file(folder / fmt::format("{}.yang", module.name), std::string(module.text));
  }
}

/// The agent writes its running configuration over the file that it began with: it is given a copy. It refuses one that
/// is empty.
std::string startup_option(const NetconfAgent &agent) {
  if (agent.startup.empty()) return "--no-startup";
  const fs::path copy = agent.own_startup();
  std::error_code error;
  fs::copy_file(agent.startup, copy, fs::copy_options::overwrite_existing, error);
  if (error) throw ServeError(fmt::format("{}: cannot be copied: {}", agent.startup.string(), error.message()));
  return "--startup=" + copy.string();
}

std::vector<std::string> arguments_of(const NetconfAgent &agent) {
  return {startup_option(agent),
          "--startup-error=stop",
          "--superuser=" + agent.user,
          "--access-control=off",
          "--target=candidate",
          "--with-validate=true",
          fmt::format("--with-startup={}", !agent.settings.startup.empty()),
          "--with-url=false",
          "--idle-timeout=0",
          "--log-level=info",
          "--ncxserver-sockname=" + agent.socket().string(),
          fmt::format("--port={}", agent.port),
          "--module=vpnval-agent",
          "--module=mpls",
          "--module=l2-vpn",
          "--module=mpls-l2vpn-vpls",
          "--module=base",
          "--module=ldp",
          "--module=internal",
          "--module=KZ-MGMD-ROUTER-MIB",
          "--module=KZ-PWE3-MIB",
          "--module=KZ-VLAN-MANAGER-MIB",
          "--module=KZ-VPLS-MIB",
          "--module=KZ-VPWS-MIB"};
}

}  // namespace

ServantStart prepare_agent(const NetconfAgent &agent, const Tools &tools) {
  const fs::path home = make(agent.folder / "home");
  make(home / "data");
  make(home / ".yuma");
  make(agent.settings.work);
  const fs::path modules = make(agent.folder / "yang");
  write_modules(modules);
  const fs::path settings = agent.folder / "settings.json";
  write_file(settings, agent::write_settings(agent.settings));
  return {tools.netconfd,
          arguments_of(agent),
          {"PATH=/usr/sbin:/usr/bin:/sbin:/bin", "HOME=" + home.string(), "YUMA_HOME=" + home.string(),
           "YUMA_MODPATH=" + modules.string(), "YUMA_RUNPATH=" + tools.agent_module.parent_path().string(),
           fmt::format("{}={}", agent::kSettingsVariable, settings.string())},
          tools.setpriv};
}

}  // namespace serve
