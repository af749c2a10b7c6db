#ifndef REPORT_CI_JUNIT_H
#define REPORT_CI_JUNIT_H

#include <ostream>
#include <vector>

#include "report/commit_report.h"

namespace report {

/// A JUnit report with a test case for each commit. Its rejections are one failure, for many readers take no second
/// one, and so are its warnings where they are to fail; a commit that could not be decided is an error; one whose
/// rejections are all suppressed is skipped. Other warnings, what is suppressed and the advice for all findings stand
/// in the case's output. In both, what the device says stands apart from what it would say next.
void write_junit(std::ostream &out, const std::vector<CommitReport> &commits, bool fail_on_warn = false);

}  // namespace report

#endif
