#ifndef MAINTENANCE_COMPARISON_COMPARE_H
#define MAINTENANCE_COMPARISON_COMPARE_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "maintenance/commits/ask.h"
#include "maintenance/comparison/accepted_changes.h"
#include "maintenance/comparison/comparison.h"

namespace maintenance {

/// Recorded questions by number. Every answer that the platform gave to the library is known; of the commit, only what
/// these answers tell.
struct RecordedRow {
  std::size_t size = 0;
  std::function<Answer(std::size_t number, const std::filesystem::path &library)> ask{};
  std::function<std::optional<Commit>(std::size_t number)> commit{};  ///< what is known of the commit; maybe none
};

/// Commits and, numbered behind them, recorded questions; each has a name.
struct Corpus {
  CommitRow row;
  RecordedRow recorded;
  std::function<std::string(std::size_t number)> name;

  std::size_t size() const { return row.size + recorded.size; }
};

struct CompareTask {
  std::filesystem::path old_library;
  std::filesystem::path new_library;
  const Corpus &corpus;
  CompareOptions options{};
  std::size_t jobs = 1;
  std::function<void(std::size_t compared)> progress = [](std::size_t) {};  ///< commits so far, called now and then
};

/// Asks both libraries about every commit, OLD twice, and shrinks an example of each change; a
/// recorded question is shown as it is where no commit shows the change. The answers of some
/// thousand commits are in memory at a time. Throws as ask_all() does.
Comparison compare(const CompareTask &task, AcceptedChanges &accepted);

}  // namespace maintenance

#endif
