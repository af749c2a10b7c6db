#ifndef MAINTENANCE_REPLAY_REPLAY_H
#define MAINTENANCE_REPLAY_REPLAY_H

#include <cstddef>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "maintenance/recording/recording.h"
#include "maintenance/replay/numbered_calls.h"

namespace replay {

/// The replay cannot be made: the library cannot be loaded or hooked. what() says why.
class ReplayError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where the library did other than it did when it was recorded: it made a call that the recording does not have at
/// this place, or it gave another answer to a change that it was told of.
struct Divergence {
  std::size_t number = 0;  ///< of the call, as the recording counts
  std::string reason;      ///< of another answer to a change; empty where it is the call
  std::optional<recording::Call> asked;
  std::optional<recording::Call> recorded;  ///< what was asked there when it was recorded; none at its end
  std::vector<NumberedCall> before;         ///< the last five calls that were answered
};

struct Outcome {
  std::string library;                   ///< build id of the library that was asked
  std::optional<Divergence> divergence;  ///< there is then no verdict
  std::string crash;                     ///< how the library ended its process; empty where it did not
  std::optional<std::int64_t> verdict;
  std::optional<std::string> message;
  std::vector<NumberedCall> not_asked;  ///< recorded answers that the library did not ask for

  /// Whether the library did what it did when it was recorded.
  bool is_same_as(const recording::Recording &recording) const {
    return !divergence && crash.empty() && not_asked.empty() && verdict == recording.trailer.verdict &&
           message == recording.trailer.message;
  }
};

/// Has the library decide again what the recording is about, every call answered as it was then. This takes place in a
/// process of its own, which ends where the library asks for what was not recorded: nothing is ever guessed. The
/// recording must outlive the outcome. Throws ReplayError.
Outcome replay(const recording::Recording &recording, const std::filesystem::path &plugin);

}  // namespace replay

#endif
