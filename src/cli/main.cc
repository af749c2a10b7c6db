#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "cli/run.h"

int main(int argc, char **argv) {
  std::ios::sync_with_stdio(false);
  std::error_code unknown;
  const char *plugin = std::getenv("VPNVAL_PLUGIN");
  const cli::Environment environment{std::cout, std::cerr, std::filesystem::read_symlink("/proc/self/exe", unknown),
                                     plugin == nullptr ? "" : plugin};
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return static_cast<int>(cli::run(arguments, environment));
}
