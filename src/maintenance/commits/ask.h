#ifndef MAINTENANCE_COMMITS_ASK_H
#define MAINTENANCE_COMMITS_ASK_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

#include "maintenance/commits/answer.h"
#include "maintenance/commits/commit.h"

namespace maintenance {

/// Commits to ask about, by number.
struct CommitRow {
  std::size_t size = 0;
  std::function<Commit(std::size_t number)> commit;  ///< called in the processes that ask, maybe more than once
};

struct AskOptions {
  std::size_t jobs = 1;                                                     ///< so many processes at once, 1 or more
  std::function<void(std::size_t answered)> progress = [](std::size_t) {};  ///< called now and then
};

/// Asks a library about each of the commits, in processes of their own: those of one process are made on elements with
/// the same card, whose limits a library reads once. What a library does to its process is an answer: where it ends it,
/// or takes more than a minute of CPU time, the answer says so, and another process goes on behind that commit. An
/// exception of CommitRow::commit is an answer, too, not_decided. Throws host::LoadError where the file is no library
/// that can be asked, and std::system_error where no process can be made.
///
/// This process must have no other thread, and neither a host session nor the library.
std::vector<Answer> ask_all(const std::filesystem::path &library, const CommitRow &row, const AskOptions &options = {});

/// Of one commit.
Answer ask(const std::filesystem::path &library, const Commit &commit);

}  // namespace maintenance

#endif
