#include "maintenance/replay/player.h"

#include <cstdlib>

namespace replay {

namespace {

Player *the_player = nullptr;

}  // namespace

Player &player() { return *the_player; }
void set_player(Player *player) { the_player = player; }

Player::Player(const recording::Recording &recording, std::function<void(const Account &)> end)
    : recording_(recording), end_(std::move(end)), numbered_(numbered_calls(recording)) {
  for (const NumberedCall &numbered : numbered_) numbers_[numbered.call] = numbered.number;
  is_asked_.resize(numbered_.size() + 1);
  levels_.push_back({&recording_.calls});
  last_extension_.function = recording::Function::system_clock_now;
  last_extension_.result = recording_.header.last_extension;
}

std::size_t Player::next_number() const {
  const Level &level = levels_.back();
  if (level.asked < level.calls->size()) return numbers_.at(&(*level.calls)[level.asked]);
  std::size_t last = 0;
  for (std::size_t number = 1; number < is_asked_.size(); ++number) {
    if (is_asked_[number]) last = number;
  }
  return last + 1;
}

void Player::diverge(const recording::Call *asked, const std::string &reason) {
  Account account;
  account.end = Account::End::diverged;
  account.number = next_number();
  if (asked != nullptr) account.asked = *asked;
  account.reason = reason;
  end_(account);
  std::abort();
}

void Player::fail_at(const recording::Call &call) {
  Account account;
  account.end = Account::End::failed;
  const auto number = numbers_.find(&call);
  account.reason = "call " + std::to_string(number == numbers_.end() ? 0 : number->second) + " of " +
                   std::string(recording::name(call.function)) + " has not the outputs that the function has";
  end_(account);
  std::abort();
}

const recording::Call &Player::answer(const recording::Call &asked) {
  const Level &level = levels_.back();
  const recording::Call *call = reading_before(asked);
  const bool has_next = level.asked < level.calls->size();
  if (call == nullptr && has_next && recording::asks_same((*level.calls)[level.asked], asked)) {
    call = &(*level.calls)[levels_.back().asked++];
    is_asked_[numbers_.at(call)] = true;
  }
  if (call == nullptr) call = limit_before(asked);
  if (call == nullptr) diverge(&asked, "");
  if (call->error && error_number_ != nullptr) *error_number_ = static_cast<int>(*call->error);
  return *call;
}

// The library counts its time-out from the first time that it reads in a process. In this process, that must be the
// time from which it counted when it was recorded.
const recording::Call *Player::reading_before(const recording::Call &asked) {
  if (asked.function != recording::Function::system_clock_now || !last_extension_.result) return nullptr;
  if (last_extension_is_asked_) return nullptr;
  last_extension_is_asked_ = true;
  return &last_extension_;
}

const recording::Call *Player::limit_before(const recording::Call &asked) const {
  if (!recording::is_of_feature_model(asked.function)) return nullptr;
  for (const recording::Call &limit : recording_.header.limits) {
    if (recording::asks_same(limit, asked)) return &limit;
  }
  return nullptr;
}

void Player::enter(const recording::Callback &callback) { levels_.push_back({&callback.calls}); }

void Player::leave(const recording::Callback &callback, std::int64_t answer) {
  if (answer != callback.answer) {
    diverge(nullptr, "the library answered a change with " + std::to_string(answer) + ", recorded " +
                         std::to_string(callback.answer));
  }
  levels_.pop_back();
}

std::vector<std::size_t> Player::not_asked() const {
  std::vector<std::size_t> numbers;
  for (const NumberedCall &numbered : numbered_) {
    if (!is_asked_[numbered.number]) numbers.push_back(numbered.number);
  }
  return numbers;
}

}  // namespace replay
