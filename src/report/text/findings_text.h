#ifndef REPORT_TEXT_FINDINGS_TEXT_H
#define REPORT_TEXT_FINDINGS_TEXT_H

#include <ostream>
#include <string>
#include <vector>

#include "report/commit_report.h"
#include "report/text/text_style.h"

namespace report {

/// What stands below a verdict: what the device says and what hides behind it, each with its explanation, and how the
/// search went where it did not come to its end. Without a search, the suppressed findings alone.
void write_findings(std::ostream &out, const std::vector<Finding> &findings, const SearchReport &search,
                    const TextStyle &style);

/// "rejected [RULE]: MESSAGE", with what suppresses it.
void write_headline(std::ostream &out, const Finding &finding, const TextStyle &style);

/// The parties and what is to be taken back, a line each, indented by three; long lists are cut.
void write_explanation(std::ostream &out, const Finding &finding, const TextStyle &style);

/// Which bound ended a search and what may be missing therefore; empty for one that came to its end, or was not wanted.
std::string search_end_text(const SearchReport &search);

}  // namespace report

#endif
