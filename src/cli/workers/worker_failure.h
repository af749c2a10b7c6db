#ifndef CLI_WORKERS_WORKER_FAILURE_H
#define CLI_WORKERS_WORKER_FAILURE_H

#include <optional>

#include "cli/command_line/failure.h"
#include "process/child.h"

namespace cli {

/// Why a process that ran this program has come to no verdict: what it ended with, or would have ended with, and what
/// it said on standard error where it said anything. Nothing for a process that has come to a verdict.
std::optional<Failure> worker_failure(const process::Result &result);

}  // namespace cli

#endif
