#include "cli/commands/maintenance_program.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "cli/command_line/errors.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

constexpr const char *kName = "vpnval-maintenance";

fs::path find_maintenance_program(const fs::path &program) {
  const fs::path built = program.parent_path() / kName;
  const fs::path installed = (program.parent_path() / "../libexec/vpnval" / kName).lexically_normal();
  std::error_code unknown;
  for (const fs::path &place : {built, installed}) {
    if (fs::exists(place, unknown)) return place;
  }
  throw WorkerError(fmt::format("{}: no such file, nor {}; expected the program of the commands for maintainers",
                                built.string(), installed.string()),
                    ExitStatus::unreadable_file);
}

}  // namespace

ExitStatus become_maintenance_program(const MaintenanceArguments &arguments, const Environment &environment) {
  const fs::path program = find_maintenance_program(environment.program);
  std::vector<std::string> words{program.string()};
  words.insert(words.end(), arguments.words.begin(), arguments.words.end());
  std::vector<char *> pointers;
  for (std::string &word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  environment.out.flush();
  execv(program.c_str(), pointers.data());
  throw WorkerError(fmt::format("{}: cannot be executed: {}", program.string(), std::strerror(errno)),
                    ExitStatus::unreadable_file);
}

}  // namespace cli
