#include "cli/program.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace cli {
namespace {

std::string variable(const char *name) {
  const char *value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The last word where memory runs out within a destructor, from which no exception gets out: a JSON value takes memory
/// to free what it holds.
[[noreturn]] void end_program() {
  constexpr std::string_view message = "vpnval: out of memory\n";
  try {
    if (const std::exception_ptr error = std::current_exception()) std::rethrow_exception(error);
  } catch (const std::bad_alloc &) {
    if (::write(STDERR_FILENO, message.data(), message.size()) >= 0) {
      _exit(static_cast<int>(ExitStatus::out_of_memory));
    }
  } catch (...) {
    std::abort();
  }
  std::abort();
}

/// The columns of a terminal: those that the environment names, else those that it has itself.
std::size_t columns_of(int terminal) {
  const std::string named = variable("COLUMNS");
  std::size_t columns = 0;
  const auto [end, error] = std::from_chars(named.data(), named.data() + named.size(), columns);
  if (error == std::errc() && columns != 0) return columns;
  winsize size{};
  return ioctl(terminal, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool is_terminal(int file) { return isatty(file) == 1 && variable("TERM") != "dumb"; }

}  // namespace

std::filesystem::path this_program() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown);
}

int run_program(int argc, char **argv, const std::filesystem::path &program, const Command &command) {
  std::set_terminate(end_program);
  std::ios::sync_with_stdio(false);
  Environment environment{std::cout,
                          std::cerr,
                          program,
                          variable("VPNVAL_PLUGIN"),
                          is_terminal(STDOUT_FILENO),
                          is_terminal(STDERR_FILENO),
                          !variable("NO_COLOR").empty(),
                          variable("PATH")};
  if (environment.out_is_terminal) environment.columns = columns_of(STDOUT_FILENO);
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return static_cast<int>(run_guarded(command, arguments, environment));
}

}  // namespace cli
