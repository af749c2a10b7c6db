#ifndef REPORT_IN_FORCE_H
#define REPORT_IN_FORCE_H

#include "report/commit_report.h"

namespace report {

/// Makes the report of a commit to an element on which nothing is in force one of what its configuration has: what the
/// commit adds is in force, and all findings are the device's, for there is no change of which it would say one first.
void tell_as_in_force(CommitReport &commit);

}  // namespace report

#endif
