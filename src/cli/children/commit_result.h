#ifndef CLI_CHILDREN_COMMIT_RESULT_H
#define CLI_CHILDREN_COMMIT_RESULT_H

#include <string>

#include "cli/exit_status.h"
#include "cli/findings/decided_commit.h"
#include "process/child.h"

namespace cli {

/// What came out for one commit of many.
struct CommitResult {
  DecidedCommit commit;
  ExitStatus status = ExitStatus::internal;  ///< what deciding this commit alone would have ended with
  std::string document;                      ///< the verdict as JSON; empty where there is an error instead
};

/// What a process that was to decide the commit `name` and print its verdict as JSON has left behind. A process that
/// was stopped or printed none is an error of this commit.
CommitResult commit_result(const std::string &name, const process::Result &left);

}  // namespace cli

#endif
