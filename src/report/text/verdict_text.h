#ifndef REPORT_TEXT_VERDICT_TEXT_H
#define REPORT_TEXT_VERDICT_TEXT_H

#include <ostream>
#include <string>
#include <vector>

#include "report/check_report.h"
#include "report/text/text_style.h"

namespace report {

/// What the commit adds, changes and removes in a line, and below it why it is not to be made, where it is not.
void write_summary_of_change(std::ostream &out, const CheckReport &report, const TextStyle &style);

/// "refused: 12 VPNs ...". Precondition: the commit has a refusal.
std::string refusal_text(const CommitReport &commit, const TextStyle &style);

/// A line a change, "+" added, "-" removed, "~" changed; what belongs to one outermost list entry stands below it.
void write_changes(std::ostream &out, const std::vector<ListedChange> &changes, const TextStyle &style);

/// A line a validation point that was asked, the trace if it was wanted, the total, a line a name because of
/// which questions could not be read, and the library that decided.
void write_verdict(std::ostream &out, const CheckReport &report, const TextStyle &style);

}  // namespace report

#endif
