#include "cli/commit_result.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string_view>

#include "cli/json_input.h"

namespace cli {
namespace {

constexpr std::string_view kErrorMark = "vpnval: ";

CommitResult not_decided(const std::string &name, ExitStatus status, std::string error) {
  CommitResult result;
  result.commit.name = name;
  result.commit.error = std::move(error);
  result.status = status;
  return result;
}

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

CommitResult commit_result(const std::string &name, const process::Result &left) {
  if (!left.not_started.empty()) return not_decided(name, ExitStatus::internal, left.not_started);
  if (left.signal != 0) return not_decided(name, ExitStatus::internal, stop_text(left));
  const ExitStatus status = known_status(left.exit_status).value_or(ExitStatus::internal);
  if (!is_verdict(status)) return not_decided(name, status, error_text(left));
  try {
    return {read_json_report(left.out, name), status, left.out};
  } catch (const DocumentError &error) {
    return not_decided(name, ExitStatus::internal, error.what());
  }
}

}  // namespace cli
