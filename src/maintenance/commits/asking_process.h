#ifndef MAINTENANCE_COMMITS_ASKING_PROCESS_H
#define MAINTENANCE_COMMITS_ASKING_PROCESS_H

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "maintenance/commits/ask.h"
#include "process/descriptor.h"

namespace maintenance {

/// A child process that asks a library about some commits of a row, in their order. It ends early where the library
/// broke its contract or could not be loaded, and passes over commits to elements with another card than the first
/// one's; rest() has what was not asked for either reason.
class AskingProcess {
 public:
  /// Starts it. `numbers`, of the commits in the row, is not empty. Throws std::system_error.
  AskingProcess(const std::filesystem::path &library, const CommitRow &row, std::vector<std::size_t> numbers);

  /// Kills it where it still runs.
  ~AskingProcess();
  AskingProcess(const AskingProcess &) = delete;
  AskingProcess &operator=(const AskingProcess &) = delete;

  /// For poll(): readable when take() would not wait.
  int descriptor() const { return pipe_.number(); }

  struct Taken {
    std::vector<std::pair<std::size_t, Answer>> answers;  ///< with the number of the commit
    bool is_ended = false;
  };

  /// The answers that arrived since the last call; waits for one where none has. Of a process that died, the last
  /// answer is AnswerEnd::died, for the commit that it was asking about.
  Taken take();

  /// The numbers that are still to be asked about, by another process. Valid once it has ended.
  std::vector<std::size_t> rest() const;

 private:
  void take_records(Taken &taken);
  void wait(Taken &taken);

  std::vector<std::size_t> numbers_;
  std::size_t done_ = 0;                    ///< of these
  std::vector<std::size_t> passed_over_{};  ///< those of another card
  pid_t process_ = -1;
  process::Descriptor pipe_;
  std::string buffer_;
};

}  // namespace maintenance

#endif
