#ifndef REPORT_ROLLBACK_H
#define REPORT_ROLLBACK_H

#include <string>
#include <vector>

#include "report/commit_report.h"

namespace report {

/// How the way back of the commit of this name is called.
std::string rollback_name(const std::string &name);

/// The commits, each with its way back behind it where that was decided, whose time is within its own.
std::vector<CommitReport> with_rollbacks(const std::vector<CommitReport> &commits);

}  // namespace report

#endif
