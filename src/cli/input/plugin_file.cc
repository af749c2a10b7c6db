#include "cli/input/plugin_file.h"

#include <fmt/format.h>

#include "host/run/plugin.h"

namespace cli {

namespace fs = std::filesystem;

fs::path find_plugin_file(const std::string &option, const Environment &environment) {
  // Absolute, for the loader searches the system's directories for a name without a slash.
  if (!option.empty()) return fs::absolute(option);
  if (!environment.plugin_variable.empty()) return fs::absolute(environment.plugin_variable);

  const fs::path lib = (environment.program.parent_path() / "../lib").lexically_normal();
  fs::path built = lib / "libconfig_validate_vpn.so";
  if (fs::exists(built)) return built;
  fs::path installed = lib / VPNVAL_MULTIARCH / "vpnval" / "libconfig_validate_vpn.so";
  if (fs::exists(installed)) return installed;
  throw host::LoadError(fmt::format("{}: no such file, nor {}; --plugin or VPNVAL_PLUGIN may name another",
                                    built.string(), installed.string()));
}

}  // namespace cli
