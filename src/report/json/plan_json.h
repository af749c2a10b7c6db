#ifndef REPORT_JSON_PLAN_JSON_H
#define REPORT_JSON_PLAN_JSON_H

#include <ostream>

#include "report/plan_report.h"

namespace report {

/// The report as one JSON document; docs/plan.schema.json describes it.
void write_plan_json(std::ostream &out, const PlanReport &report);

}  // namespace report

#endif
