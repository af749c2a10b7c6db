#ifndef CLI_CHILDREN_CHILD_FAILURE_H
#define CLI_CHILDREN_CHILD_FAILURE_H

#include <optional>
#include <string>

#include "cli/exit_status.h"
#include "process/child.h"

namespace cli {

/// Why a process that ran this program has come to no verdict.
struct ChildFailure {
  ExitStatus status = ExitStatus::internal;  ///< what it ended with, or would have ended with
  std::string text;                          ///< what it said itself where it said anything
};

/// Nothing for a process that has come to a verdict.
std::optional<ChildFailure> child_failure(const process::Result &left);

}  // namespace cli

#endif
