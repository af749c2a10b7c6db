#ifndef BENCH_TIMED_PLATFORM_H
#define BENCH_TIMED_PLATFORM_H

#include <cstdint>

namespace bench {

/// What the platform's functions have taken so far.
struct PlatformTime {
  double seconds = 0;             ///< CPU time inside the functions
  std::uint64_t timed_calls = 0;  ///< each holds up its caller by about one reading of the clock
};

/// Since the program began. A program that links timed_platform.cc and exports its symbols stands between a library
/// that it loads and the virtual element: the library's calls pass through it. What the library does when a function
/// calls it back counts as the platform's; sessions, the feature model and the socket, which a commit asks for once or
/// twice, are not timed.
PlatformTime platform_time();

/// CPU seconds of one reading of the clock.
double clock_reading_seconds();

}  // namespace bench

#endif
