#ifndef CLI_WORKERS_COMMIT_RESULT_H
#define CLI_WORKERS_COMMIT_RESULT_H

#include <string>

#include "process/child.h"
#include "report/series_output.h"

namespace cli {

/// The result of the commit `name` from the process that was to decide it and print its report as JSON. A process that
/// was stopped by a signal, failed or printed no report makes a commit with an error and without a decision.
report::CommitResult commit_result(const std::string &name, const process::Result &result);

}  // namespace cli

#endif
