#ifndef REPORT_TEXT_FINDINGS_TEXT_H
#define REPORT_TEXT_FINDINGS_TEXT_H

#include <ostream>
#include <string>

#include "report/commit_report.h"
#include "report/text/text_style.h"

namespace report {

/// What stands below a verdict: what the device says and what it would say next, each with its explanation, what is to
/// be done about all of it, and whether there may be more. Without a search, findings without a rule are left out: the
/// verdict says as much.
void write_findings(std::ostream &out, const CommitReport &commit, const TextStyle &style);

/// "for the commit to be accepted: take back ..." in one line; empty where there is no such advice, or one finding
/// alone that has the same.
std::string advice_for_all_line(const CommitReport &commit);

/// What ended a search, or which rules it did not look at to the end, and what may be missing therefore; empty where
/// nothing is, or no search was wanted.
std::string search_end_text(const SearchReport &search);

}  // namespace report

#endif
