#include "cli/workers/worker_failure.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace cli {
namespace {

constexpr std::string_view kErrorMark = "vpnval: ";

std::string_view last_line(std::string_view text) {
  while (text.ends_with('\n')) text.remove_suffix(1);
  return text.substr(text.rfind('\n') + 1);
}

/// A library that finds its data model broken says so in its last line.
std::string stop_text(const process::Result &result) {
  const char *name = sigabbrev_np(result.signal);
  const std::string text = name == nullptr ? fmt::format("stopped by signal {}", result.signal)
                                           : fmt::format("stopped by signal SIG{}", name);
  const std::string_view line = last_line(result.err);
  return line.find("Assertion `") == std::string_view::npos ? text : fmt::format("{}: {}", text, line);
}

std::optional<ExitStatus> known_status(int number) {
  const auto *known = std::find_if(exit_status_table.begin(), exit_status_table.end(),
                                   [number](const auto &row) { return static_cast<int>(row.status) == number; });
  return known == exit_status_table.end() ? std::nullopt : std::optional(known->status);
}

std::string error_text(const process::Result &result) {
  std::string_view line = last_line(result.err);
  if (!line.starts_with(kErrorMark)) return fmt::format("ended with status {}", result.exit_status);
  line.remove_prefix(kErrorMark.size());
  return std::string(line);
}

bool is_verdict(ExitStatus status) { return static_cast<int>(status) < static_cast<int>(ExitStatus::usage); }

}  // namespace

std::optional<Failure> worker_failure(const process::Result &result) {
  if (!result.not_started.empty()) return Failure{ExitStatus::internal, result.not_started};
  if (result.signal != 0) return Failure{ExitStatus::internal, stop_text(result)};
  const ExitStatus status = known_status(result.exit_status).value_or(ExitStatus::internal);
  if (is_verdict(status)) return std::nullopt;
  return Failure{status, error_text(result)};
}

}  // namespace cli
