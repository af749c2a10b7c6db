#ifndef BENCH_TIMED_PLATFORM_H
#define BENCH_TIMED_PLATFORM_H

#include <chrono>

namespace bench {

/// Time spent inside the platform's functions since the program began. A program that links timed_platform.cc and
/// exports its symbols stands between a library that it loads and the virtual element: the library's calls pass through
/// it. What a function does when called back by the platform counts as the platform's; sessions, the feature model and
/// the socket, which a commit asks for once or twice, are not timed.
std::chrono::nanoseconds time_in_platform();

}  // namespace bench

#endif
