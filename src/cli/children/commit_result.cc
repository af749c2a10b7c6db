#include "cli/children/commit_result.h"

#include <utility>

#include "cli/children/child_failure.h"
#include "cli/output/json_input.h"

namespace cli {
namespace {

CommitResult not_decided(const std::string &name, ExitStatus status, std::string error) {
  CommitResult result;
  result.commit.name = name;
  result.commit.error = std::move(error);
  result.status = status;
  return result;
}

}  // namespace

CommitResult commit_result(const std::string &name, const process::Result &left) {
  if (auto failure = child_failure(left)) return not_decided(name, failure->status, std::move(failure->text));
  try {
    return {read_json_report(left.out, name), static_cast<ExitStatus>(left.exit_status), left.out};
  } catch (const DocumentError &error) {
    return not_decided(name, ExitStatus::internal, error.what());
  }
}

}  // namespace cli
