#ifndef REPORT_TEXT_SUMMARY_TEXT_H
#define REPORT_TEXT_SUMMARY_TEXT_H

#include <ostream>

#include "report/summary.h"

namespace report {

/// The number of commits by decision, then the number of findings by rule.
void write_summary(std::ostream &out, const SeriesSummary &summary);

}  // namespace report

#endif
