#ifndef MAINTENANCE_COMMITS_ASK_H
#define MAINTENANCE_COMMITS_ASK_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

#include "maintenance/commits/answer.h"
#include "maintenance/commits/commit.h"

namespace maintenance {

/// Commits by number, each made when it is asked about, so that not all of them are in memory.
struct CommitRow {
  std::size_t size = 0;
  std::function<Commit(std::size_t number)> commit;  ///< called in the processes that ask, maybe more than once
};

struct AskOptions {
  std::size_t jobs = 1;                                                     ///< so many processes at once, 1 or more
  std::function<void(std::size_t answered)> progress = [](std::size_t) {};  ///< called now and then
};

/// Asks a library about each of the commits, in child processes; the answers have the order of the commits. A library
/// reads a card's limits once in a process, so commits to elements with other cards go to other processes. Where the
/// library ends its process, or uses more than a minute of CPU time for a commit, the answer is AnswerEnd::died, and
/// another process goes on with the next commit. Where CommitRow::commit throws, it is AnswerEnd::not_decided with the
/// exception's text. Throws host::LoadError where the file is no library that can be asked, and std::system_error where
/// no process can be made.
///
/// Precondition: this process has no other thread and no host session, and has not loaded the library.
std::vector<Answer> ask_all(const std::filesystem::path &library, const CommitRow &row, const AskOptions &options = {});

/// The answer to one commit, as ask_all() has it.
Answer ask(const std::filesystem::path &library, const Commit &commit);

}  // namespace maintenance

#endif
