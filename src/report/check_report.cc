#include "report/check_report.h"

#include "confd_lib.h"

namespace report {

PointCounts count_points(const host::Verdict &verdict) {
  PointCounts counts;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.result == CONFD_OK) ++counts.accepted;
    if (point.result == CONFD_VALIDATION_WARN) ++counts.warned;
    if (point.result == CONFD_ERR) ++counts.rejected;
  }
  return counts;
}

std::string_view answer_text(const host::PointVerdict &point) {
  if (point.result == CONFD_OK) return "accepted";
  if (point.result == CONFD_VALIDATION_WARN) return "warning";
  return "rejected";
}

}  // namespace report
