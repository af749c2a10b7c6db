#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "cli/run.h"

namespace {

std::string variable(const char *name) {
  const char *value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool is_terminal(int file) { return isatty(file) == 1 && variable("TERM") != "dumb"; }

}  // namespace

int main(int argc, char **argv) {
  std::ios::sync_with_stdio(false);
  std::error_code unknown;
  const cli::Environment environment{std::cout,
                                     std::cerr,
                                     std::filesystem::read_symlink("/proc/self/exe", unknown),
                                     variable("VPNVAL_PLUGIN"),
                                     is_terminal(STDOUT_FILENO),
                                     is_terminal(STDERR_FILENO),
                                     !variable("NO_COLOR").empty()};
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return static_cast<int>(cli::run(arguments, environment));
}
