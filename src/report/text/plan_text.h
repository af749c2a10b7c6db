#ifndef REPORT_TEXT_PLAN_TEXT_H
#define REPORT_TEXT_PLAN_TEXT_H

#include <ostream>

#include "report/plan_report.h"

namespace report {

/// What each step changes, or why no steps were found.
void write_plan_text(std::ostream &out, const PlanReport &report);

}  // namespace report

#endif
