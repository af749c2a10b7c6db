#ifndef MAINTENANCE_COST_LIBRARY_CLOCK_H
#define MAINTENANCE_COST_LIBRARY_CLOCK_H

#include <chrono>
#include <filesystem>

namespace cost {

/// While it lives, a loaded library sees a wall clock that stands still until it is moved, so that its keep-alive does
/// what it would do on an element that takes so long. The rest of the process keeps the real clock: the library's
/// own reference to std::chrono::system_clock::now is set anew. One object at a time.
class LibraryClock {
 public:
  /// The clock begins at the real time. Throws std::runtime_error where the library has no such reference:
  /// it then reads the time another way, and nothing can be said of its keep-alive.
  explicit LibraryClock(const std::filesystem::path &library);
  ~LibraryClock();
  LibraryClock(const LibraryClock &) = delete;
  LibraryClock &operator=(const LibraryClock &) = delete;

  static void move(std::chrono::nanoseconds time);

 private:
  void **slot_ = nullptr;
  void *before_ = nullptr;
};

}  // namespace cost

#endif
