#include "cli/children/child_failure.h"

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
std::string stop_text(const process::Result &left) {
  const char *name = sigabbrev_np(left.signal);
  const std::string text =
      name == nullptr ? fmt::format("stopped by signal {}", left.signal) : fmt::format("stopped by signal SIG{}", name);
  const std::string_view line = last_line(left.err);
  return line.find("Assertion `") == std::string_view::npos ? text : fmt::format("{}: {}", text, line);
}

std::optional<ExitStatus> known_status(int number) {
  const auto *known = std::find_if(exit_status_table.begin(), exit_status_table.end(),
                                   [number](const auto &row) { return static_cast<int>(row.status) == number; });
  return known == exit_status_table.end() ? std::nullopt : std::optional(known->status);
}

std::string error_text(const process::Result &left) {
  std::string_view line = last_line(left.err);
  if (!line.starts_with(kErrorMark)) return fmt::format("ended with status {}", left.exit_status);
  line.remove_prefix(kErrorMark.size());
  return std::string(line);
}

bool is_verdict(ExitStatus status) { return static_cast<int>(status) < static_cast<int>(ExitStatus::usage); }

}  // namespace

std::optional<ChildFailure> child_failure(const process::Result &left) {
  if (!left.not_started.empty()) return ChildFailure{ExitStatus::internal, left.not_started};
  if (left.signal != 0) return ChildFailure{ExitStatus::internal, stop_text(left)};
  const ExitStatus status = known_status(left.exit_status).value_or(ExitStatus::internal);
  if (is_verdict(status)) return std::nullopt;
  return ChildFailure{status, error_text(left)};
}

}  // namespace cli
