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

/// One process that asks about some commits of a row, in their order. It ends early behind an answer after which the
/// library cannot be asked on, and passes over commits on elements with another card than that of the first one.
class AskingProcess {
 public:
  /// Starts it. `numbers` is not empty. Throws std::system_error.
  AskingProcess(const std::filesystem::path &library, const CommitRow &row, std::vector<std::size_t> numbers);

  /// Kills it where it still runs.
  ~AskingProcess();
  AskingProcess(const AskingProcess &) = delete;
  AskingProcess &operator=(const AskingProcess &) = delete;

  /// Readable when there is something to take.
  int descriptor() const { return pipe_.number(); }

  struct Taken {
    std::vector<std::pair<std::size_t, Answer>> answers;  ///< with the number of the commit
    bool is_ended = false;
  };

  /// Takes what has been answered, waiting where nothing has. At the end of a process that died, the commit at which
  /// it died is among the answers.
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
