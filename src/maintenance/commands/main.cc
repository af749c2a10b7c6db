#include "cli/program.h"
#include "maintenance/commands/command_list.h"

namespace {

/// The program whose command this one carries out: beside it in a build, in ../../bin of an installation.
std::filesystem::path command_of(const std::filesystem::path &program) {
  std::filesystem::path beside = program.parent_path() / "vpnval";
  std::error_code unknown;
  if (std::filesystem::exists(beside, unknown)) return beside;
  return (program.parent_path() / "../../bin/vpnval").lexically_normal();
}

}  // namespace

int main(int argc, char **argv) {
  return cli::run_program(argc, argv, command_of(cli::this_program()), maintenance::run_command);
}
