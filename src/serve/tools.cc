#include "serve/tools.h"

#include <fmt/format.h>

#include <system_error>
#include <vector>

#include "process/find_program.h"
#include "serve/serve_error.h"

namespace serve {
namespace {

namespace fs = std::filesystem;

/// Servers stand in directories that are not on every user's path.
constexpr const char *kServerDirectories = "/usr/sbin:/sbin:/usr/local/sbin";
constexpr const char *kModule = "libvpnval-agent.so";

fs::path find_module(const fs::path &program, const std::string &multiarch) {
  const fs::path lib = (program.parent_path() / "../lib").lexically_normal();
  std::error_code unknown;
  for (const fs::path &place : {lib / "agent", lib / multiarch / "vpnval" / "agent"}) {
    if (fs::exists(place / kModule, unknown)) return place / kModule;
  }
  return {};
}

}  // namespace

Tools find_tools(const std::string &search_path, const fs::path &program, const std::string &multiarch) {
  std::vector<std::string> missing;
  const auto find = [&](const char *name, const char *package) {
    const auto found = process::find_program(name, fmt::format("{}:{}", search_path, kServerDirectories));
    if (!found) missing.push_back(fmt::format("{} of the package {}", name, package));
    return found.value_or(fs::path());
  };
  Tools tools{find("netconfd", "netconfd"), find("sshd", "openssh-server"), find("ssh-keygen", "openssh-client"),
              find("setpriv", "util-linux"), find_module(program, multiarch)};
  if (tools.agent_module.empty()) missing.push_back(fmt::format("{}, which is built where libyuma-dev is", kModule));
  if (missing.empty()) return tools;
  throw ServeError(fmt::format("serve lacks {}", fmt::join(missing, ", ")));
}

}  // namespace serve
