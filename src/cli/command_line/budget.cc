#include "cli/command_line/budget.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <optional>

#include "cli/command_line/errors.h"

namespace cli {
namespace {

/// More seconds than this are no bound any more.
constexpr std::uint64_t kLongestTime = 1'000'000'000;

std::optional<std::uint64_t> whole_number(std::string_view text) {
  std::uint64_t number = 0;
  const char *end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

bool read_calls(std::string_view text, diagnosis::Budget &budget) {
  const auto calls = whole_number(text);
  if (calls) budget.calls = *calls;
  return calls.has_value();
}

bool read_time(std::string_view text, diagnosis::Budget &budget) {
  if (!text.ends_with('s')) return false;
  const auto seconds = whole_number(text.substr(0, text.size() - 1));
  if (!seconds || *seconds > kLongestTime) return false;
  budget.time = std::chrono::seconds(*seconds);
  return true;
}

}  // namespace

diagnosis::Budget parse_budget(std::string_view text) {
  diagnosis::Budget budget;
  const std::size_t comma = text.find(',');
  const bool is_read = comma == std::string_view::npos
                           ? read_time(text, budget) || read_calls(text, budget)
                           : read_calls(text.substr(0, comma), budget) && read_time(text.substr(comma + 1), budget);
  if (is_read) return budget;
  throw UsageError(fmt::format(
      "--budget: \"{}\" is no budget; expected calls of the library, seconds, or both, as 500, 30s or 500,30s", text));
}

bool is_nothing(const diagnosis::Budget &budget) { return budget.calls == 0 || budget.time.count() == 0; }

}  // namespace cli
