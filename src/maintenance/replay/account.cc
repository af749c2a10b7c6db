#include "maintenance/replay/account.h"

#include "maintenance/recording/decode.h"
#include "maintenance/recording/encode.h"

namespace replay {

// The bytes are those of a recording that carries the account: in its header the build id and, as the point's name, the
// reason; as its only limit's arguments `end`, `number` and `not_asked`; as its only call `asked`.
std::string to_bytes(const Account &account) {
  recording::Recording envelope;
  envelope.header.library = account.library;
  envelope.header.point = account.reason;
  recording::Call numbers;
  numbers.function = recording::Function::fm_init;
  numbers.arguments.emplace_back(static_cast<std::int64_t>(account.end));
  numbers.arguments.emplace_back(static_cast<std::int64_t>(account.number));
  for (const std::size_t number : account.not_asked) {
    numbers.arguments.emplace_back(static_cast<std::int64_t>(number));
  }
  envelope.header.limits.push_back(std::move(numbers));
  if (account.asked) envelope.calls.push_back(*account.asked);
  envelope.trailer.verdict = account.verdict;
  envelope.trailer.message = account.message;
  return recording::encode(envelope);
}

Account account_from(std::string_view bytes) {
  const recording::Recording envelope = recording::decode(bytes);
  const recording::Items &numbers = envelope.header.limits.at(0).arguments;
  Account account;
  account.end = static_cast<Account::End>(std::get<std::int64_t>(numbers.at(0)));
  account.library = envelope.header.library;
  account.reason = envelope.header.point;
  account.number = static_cast<std::size_t>(std::get<std::int64_t>(numbers.at(1)));
  if (!envelope.calls.empty()) account.asked = envelope.calls.front();
  for (std::size_t i = 2; i < numbers.size(); ++i) {
    account.not_asked.push_back(static_cast<std::size_t>(std::get<std::int64_t>(numbers[i])));
  }
  account.verdict = envelope.trailer.verdict;
  account.message = envelope.trailer.message;
  return account;
}

}  // namespace replay
