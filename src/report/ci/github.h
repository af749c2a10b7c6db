#ifndef REPORT_CI_GITHUB_H
#define REPORT_CI_GITHUB_H

#include <ostream>
#include <vector>

#include "report/commit_report.h"

namespace report {

/// GitHub's workflow commands, one for each finding that is not suppressed and for each commit that could not be
/// decided: "::error" or "::warning" with file, line and the rule as title; the message with its explanation.
void write_github(std::ostream &out, const std::vector<CommitReport> &commits);

}  // namespace report

#endif
