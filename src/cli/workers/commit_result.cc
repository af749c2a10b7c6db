#include "cli/workers/commit_result.h"

#include <optional>
#include <utility>

#include "cli/workers/worker_failure.h"
#include "report/json/series_json.h"

namespace cli {
namespace {

report::CommitResult not_decided(const std::string &name, ExitStatus status, std::string error) {
  report::CommitResult result;
  result.commit.name = name;
  result.commit.error = std::move(error);
  result.exit_status = static_cast<int>(status);
  return result;
}

/// A process that fails in order tells why in its document, more closely than on standard error.
std::optional<report::CommitResult> told_failure(const std::string &name, const process::Result &result) {
  if (result.signal != 0 || result.out.empty()) return std::nullopt;
  try {
    report::CommitResult told = report::read_single_result(result.out, name);
    return told.commit.decision ? std::nullopt : std::optional(std::move(told));
  } catch (const report::DocumentError &) {
    return std::nullopt;
  }
}

report::CommitResult untimed_result(const std::string &name, const process::Result &result) {
  if (auto failure = worker_failure(result)) {
    if (auto told = told_failure(name, result)) return std::move(*told);
    return not_decided(name, failure->status, std::move(failure->text));
  }
  try {
    report::CommitResult decided = report::read_single_result(result.out, name);
    decided.exit_status = result.exit_status;
    return decided;
  } catch (const report::DocumentError &error) {
    return not_decided(name, ExitStatus::internal, error.what());
  }
}

}  // namespace

report::CommitResult commit_result(const std::string &name, const process::Result &result) {
  report::CommitResult decided = untimed_result(name, result);
  decided.commit.seconds = result.seconds;
  return decided;
}

}  // namespace cli
