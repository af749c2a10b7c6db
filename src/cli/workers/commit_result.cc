#include "cli/workers/commit_result.h"

#include <utility>

#include "cli/workers/worker_failure.h"
#include "report/json/verdict_json.h"

namespace cli {
namespace {

report::CommitResult not_decided(const std::string &name, ExitStatus status, std::string error) {
  report::CommitResult result;
  result.commit.name = name;
  result.commit.error = std::move(error);
  result.exit_status = static_cast<int>(status);
  return result;
}

}  // namespace

report::CommitResult commit_result(const std::string &name, const process::Result &result) {
  if (auto failure = worker_failure(result)) return not_decided(name, failure->status, std::move(failure->text));
  try {
    return {report::read_json_report(result.out, name), result.exit_status, result.out};
  } catch (const report::DocumentError &error) {
    return not_decided(name, ExitStatus::internal, error.what());
  }
}

}  // namespace cli
