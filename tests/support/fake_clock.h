#ifndef TESTS_SUPPORT_FAKE_CLOCK_H
#define TESTS_SUPPORT_FAKE_CLOCK_H

#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace scripted {

/// A wall clock that stands still until it is set, for everything in this process that asks the system for the time,
/// loaded libraries and forked children included; the monotonic clock runs on. libfaketime does it, which must be there
/// before the program starts and reads the time from a file.
class FakeClock {
 public:
  /// First thing in main(): starts the program anew with `preload` in front, unless it already runs so.
  static void restart_program_under(const std::string &preload, char **argv) {
    if (std::getenv(kFile) != nullptr) return;
    const int file = memfd_create("fake clock", 0);
    setenv(kFile, ("/proc/self/fd/" + std::to_string(file)).c_str(), 1);
    setenv("FAKETIME_NO_CACHE", "1", 1);
    setenv("FAKETIME_DONT_FAKE_MONOTONIC", "1", 1);
    setenv("LD_PRELOAD", preload.c_str(), 1);
    set(0);
    execv("/proc/self/exe", argv);
    std::perror("the program could not be started anew");
    std::exit(EXIT_FAILURE);
  }

  /// Sets the clock this many seconds, to the millisecond, after its start; also back.
  static void set(double seconds) {
    const double whole = std::floor(seconds);
    const std::time_t time = kStart + static_cast<std::time_t>(whole);
    std::tm parts{};
    localtime_r(&time, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
    std::FILE *file = std::fopen(std::getenv(kFile), "w");
    std::fprintf(file, "%s.%03ld\n", text, std::lround((seconds - whole) * 1000));
    std::fclose(file);
  }

  /// Whether the process sees the clock that was set.
  static bool works() {
    set(0);
    return std::time(nullptr) == kStart;
  }

 private:
  static constexpr const char *kFile = "FAKETIME_TIMESTAMP_FILE";
  static constexpr std::time_t kStart = 1700000000;
};

}  // namespace scripted

#endif
