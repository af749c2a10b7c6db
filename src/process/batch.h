#ifndef PROCESS_BATCH_H
#define PROCESS_BATCH_H

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "process/child.h"

namespace process {

/// A program to run many times, each time with other arguments.
struct Batch {
  std::filesystem::path program;
  std::vector<std::vector<std::string>> arguments;
  std::size_t jobs = 1;  ///< at most so many run at once; fewer where descriptors, processes or memory do not suffice
  std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;  ///< times the processes
};

struct BatchEvents {
  std::function<void(std::size_t index, Result result)> finished;  ///< in the order in which they end
  std::function<void()> waiting;  ///< a few times a second and whenever something has happened
};

/// Runs them all. One that cannot be started because descriptors, processes or memory have run out waits for the end of
/// another, or for other processes, half a minute at most, where none is running. One that cannot be started at all has
/// a Result that says so. Throws Interrupted where a signal asks this process to end, and whatever an event throws,
/// with no child left running.
void run_all(const Batch &batch, const BatchEvents &events);

}  // namespace process

#endif
