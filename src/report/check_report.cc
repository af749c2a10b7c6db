#include "report/check_report.h"

namespace report {

PointCounts count_points(const host::Verdict &verdict) {
  PointCounts counts;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer == host::Answer::accepted) ++counts.accepted;
    if (point.answer == host::Answer::warned) ++counts.warned;
    if (point.answer == host::Answer::rejected) ++counts.rejected;
  }
  return counts;
}

std::string_view answer_text(const host::PointVerdict &point) {
  if (point.answer == host::Answer::accepted) return "accepted";
  if (point.answer == host::Answer::warned) return "warning";
  return "rejected";
}

}  // namespace report
