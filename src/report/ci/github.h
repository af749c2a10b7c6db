#ifndef REPORT_CI_GITHUB_H
#define REPORT_CI_GITHUB_H

#include <ostream>
#include <vector>

#include "report/commit_report.h"

namespace report {

/// GitHub's workflow commands, one for each finding that is not suppressed and for each commit that could not be
/// decided: "::error" or "::warning" with file and line, the rule and whether the device says it as title, the message
/// with its explanation. A "::notice" for each commit with advice for all its findings, or whose search ended early.
void write_github(std::ostream &out, const std::vector<CommitReport> &commits);

}  // namespace report

#endif
