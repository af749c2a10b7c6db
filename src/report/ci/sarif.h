#ifndef REPORT_CI_SARIF_H
#define REPORT_CI_SARIF_H

#include <ostream>
#include <vector>

#include "report/commit_report.h"

namespace report {

/// A SARIF 2.1.0 log with one run: the rule table, a result for each finding with its parties as related locations, and
/// for each commit that could not be decided.
void write_sarif(std::ostream &out, const std::vector<CommitReport> &commits);

}  // namespace report

#endif
