#ifndef MAINTENANCE_REPLAY_ACCOUNT_H
#define MAINTENANCE_REPLAY_ACCOUNT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "maintenance/recording/recording.h"

namespace replay {

/// What the child process that replays a recording tells its parent, once, at its end.
struct Account {
  enum class End { answered, diverged, failed };

  End end = End::answered;
  std::string library;                   ///< build id
  std::string reason;                    ///< why it failed; diverged: of another answer to a change
  std::size_t number = 0;                ///< of the call at which it diverged
  std::optional<recording::Call> asked;  ///< diverged: the call that is not recorded at this place
  std::vector<std::size_t> not_asked;    ///< numbers of calls
  std::optional<std::int64_t> verdict;
  std::optional<std::string> message;
};

/// As bytes, and back. The calls travel in the format of recordings.
std::string to_bytes(const Account &account);
Account account_from(std::string_view bytes);

}  // namespace replay

#endif
