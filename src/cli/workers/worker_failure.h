#ifndef CLI_WORKERS_WORKER_FAILURE_H
#define CLI_WORKERS_WORKER_FAILURE_H

#include <optional>
#include <string>

#include "cli/command_line/exit_status.h"
#include "process/child.h"

namespace cli {

/// Why a process that ran this program has come to no verdict.
struct WorkerFailure {
  ExitStatus status = ExitStatus::internal;  ///< what it ended with, or would have ended with
  std::string text;                          ///< what it said itself where it said anything
};

/// Nothing for a process that has come to a verdict.
std::optional<WorkerFailure> worker_failure(const process::Result &result);

}  // namespace cli

#endif
