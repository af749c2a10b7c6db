#include "diagnosis/messages.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "rules/limit_message.h"

namespace diagnosis {
namespace {

/// A limit's text up to its first number.
std::string_view without_numbers(const rules::Rule &rule, std::string_view text) {
  const std::string_view message = rule.message;
  const std::size_t number = std::min(message.find("%d"), message.size());
  const std::size_t name = message.rfind("%s", number);
  const std::size_t begin = name == std::string_view::npos ? 0 : name + 2;
  const std::string_view words = message.substr(begin, number - begin);
  const std::size_t found = text.rfind(words);
  return found == std::string_view::npos ? text : text.substr(0, found + words.size());
}

/// A text behind its list.
std::string_view without_list(const rules::Rule &rule, std::string_view text) {
  const std::string_view message = rule.message;
  const std::string_view behind = message.substr(std::min(message.find("%s") + 2, message.size()));
  const std::size_t found = text.find(behind.substr(0, behind.find('%')));
  return found == std::string_view::npos ? text : text.substr(found);
}

std::string_view identity(const rules::Rule *rule, std::string_view text) {
  if (rule == nullptr) return text;
  if (rule->counts) return without_numbers(*rule, text);
  return rule->lists ? without_list(*rule, text) : text;
}

/// What a limit's text counts; -1 where it tells no number.
std::int64_t configured(const std::string &text) {
  const std::optional<rules::LimitNumbers> numbers = rules::parse_limit_message(text);
  return numbers ? numbers->configured.value_or(-1) : -1;
}

}  // namespace

std::vector<Message> device_messages(const host::Verdict &verdict) {
  std::vector<Message> messages;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer == host::Answer::accepted) continue;
    const bool is_rejection = point.answer == host::Answer::rejected;
    const Message message{point, rules::rule_of_message(point.point, point.text)};
    messages.insert(is_rejection ? messages.begin() : messages.end(), message);
    if (is_rejection) break;
  }
  return messages;
}

bool Message::is_cumulative() const { return rule != nullptr && (rule->counts || rule->lists); }

std::uint32_t Messages::number_of(const host::PointVerdict &answer) {
  const rules::Rule *rule = rules::rule_of_message(answer.point, answer.text);
  std::string key = fmt::format("{} {} {}", answer.point, static_cast<int>(answer.answer), identity(rule, answer.text));
  const auto [known, is_new] = numbers_.try_emplace(std::move(key), static_cast<std::uint32_t>(messages_.size()));
  if (is_new) messages_.push_back({answer, rule});
  Message &message = messages_[known->second];
  if (message.counts() && configured(answer.text) > configured(message.verdict.text)) message.verdict = answer;
  return known->second;
}

NumberSet Messages::numbers_of(const host::Verdict &verdict) {
  NumberSet numbers;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer != host::Answer::accepted) numbers.push_back(number_of(point));
  }
  normalise(numbers);
  return numbers;
}

}  // namespace diagnosis
