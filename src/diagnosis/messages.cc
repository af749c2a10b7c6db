#include "diagnosis/messages.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

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

// It lists all interfaces of the VPN that makes them so.
constexpr std::string_view kListsInterfaces = "tls-port-based-vpls";
constexpr std::string_view kBehindList = " since vpls-group ";

std::string_view identity(const rules::Rule *rule, std::string_view text) {
  if (rule == nullptr) return text;
  if (rule->counts) return without_numbers(*rule, text);
  const std::size_t end_of_list = rule->id == kListsInterfaces ? text.find(kBehindList) : std::string_view::npos;
  return end_of_list == std::string_view::npos ? text : text.substr(end_of_list);
}

}  // namespace

bool Message::is_cumulative() const { return rule != nullptr && (rule->counts || rule->id == kListsInterfaces); }

std::uint32_t Messages::number_of(const host::PointVerdict &answer) {
  const rules::Rule *rule = rules::rule_of_message(answer.point, answer.text);
  std::string key = fmt::format("{} {} {}", answer.point, static_cast<int>(answer.answer), identity(rule, answer.text));
  const auto [known, is_new] = numbers_.try_emplace(std::move(key), static_cast<std::uint32_t>(messages_.size()));
  if (is_new) messages_.push_back({answer, rule});
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
