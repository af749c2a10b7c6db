#ifndef MAINTENANCE_REPLAY_PLAYER_H
#define MAINTENANCE_REPLAY_PLAYER_H

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

#include "maintenance/hooks/handle_table.h"
#include "maintenance/hooks/question.h"
#include "maintenance/replay/account.h"
#include "maintenance/replay/numbered_calls.h"

namespace replay {

/// Gives the recorded answers to the library's questions, in the order in which they were recorded. The feature model
/// is asked once in a process, and this process is another one: what the recorded one knew of it already is answered
/// from the recording's header.
class Player {
 public:
  /// `end` tells the account and ends the process.
  Player(const recording::Recording &recording, std::function<void(const Account &)> end);

  /// Where the platform's confd_errno stands; null where the library does not use it.
  void set_error_number(int *error_number) { error_number_ = error_number; }

  /// The recorded call that asks the same. It does not return where there is none.
  template <typename... Arguments>
  const recording::Call &answer(recording::Function function, const Arguments &...arguments) {
    return answer(hooks::question(function, arguments...));
  }

  /// Between enter() and leave() the library's function runs, and its questions are answered from the calls that were
  /// recorded within the callback. `answer` is what the function returned.
  void enter(const recording::Callback &callback);
  void leave(const recording::Callback &callback, std::int64_t answer);

  /// Ends the replay: the outputs that were recorded of a call are not of the types that the call has.
  [[noreturn]] void fail_at(const recording::Call &call);

  hooks::HandleTable &handles() { return handles_; }

  /// Numbers of the calls that were not asked for.
  std::vector<std::size_t> not_asked() const;

 private:
  /// The calls of one level, and how many of them have been asked.
  struct Level {
    const std::vector<recording::Call> *calls;
    std::size_t asked = 0;
  };

  const recording::Call &answer(const recording::Call &asked);
  const recording::Call *reading_before(const recording::Call &asked);
  const recording::Call *limit_before(const recording::Call &asked) const;
  [[noreturn]] void diverge(const recording::Call *asked, const std::string &reason);
  std::size_t next_number() const;

  const recording::Recording &recording_;
  std::function<void(const Account &)> end_;
  std::vector<NumberedCall> numbered_;
  std::unordered_map<const recording::Call *, std::size_t> numbers_;
  std::vector<bool> is_asked_;  ///< by number
  std::vector<Level> levels_;
  recording::Call last_extension_;
  bool last_extension_is_asked_ = false;
  int *error_number_ = nullptr;
  hooks::HandleTable handles_;
};

/// The player of this process, which the functions that answer the library use.
Player &player();
void set_player(Player *player);

}  // namespace replay

#endif
