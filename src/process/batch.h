#ifndef PROCESS_BATCH_H
#define PROCESS_BATCH_H

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
  std::size_t jobs = 1;  ///< at most so many run at once
};

struct BatchEvents {
  std::function<void(std::size_t index, Result result)> finished;  ///< in the order in which they end
  std::function<void()> waiting;  ///< a few times a second and whenever something has happened
};

/// Runs them all; those that cannot be started have a Result, too. Throws Interrupted where a signal asks this process
/// to end, and whatever an event throws, with no child left running.
void run_all(const Batch &batch, const BatchEvents &events);

}  // namespace process

#endif
