#ifndef MAINTENANCE_COMPARISON_COMPARE_H
#define MAINTENANCE_COMPARISON_COMPARE_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "maintenance/commits/ask.h"
#include "maintenance/comparison/accepted_changes.h"
#include "maintenance/comparison/comparison.h"

namespace maintenance {

/// Commits with names.
struct Corpus {
  CommitRow row;
  std::function<std::string(std::size_t number)> name;
};

struct CompareTask {
  std::filesystem::path old_library;
  std::filesystem::path new_library;
  const Corpus &corpus;
  CompareOptions options{};
  std::size_t jobs = 1;
  std::function<void(std::size_t compared)> progress = [](std::size_t) {};  ///< commits so far, called now and then
};

/// Asks both libraries about every commit, OLD twice, and shrinks an example of each change. The answers of some
/// thousand commits are in memory at a time. Throws as ask_all() does.
Comparison compare(const CompareTask &task, AcceptedChanges &accepted);

}  // namespace maintenance

#endif
