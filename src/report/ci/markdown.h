#ifndef REPORT_CI_MARKDOWN_H
#define REPORT_CI_MARKDOWN_H

#include <ostream>
#include <vector>

#include "report/commit_report.h"

namespace report {

/// A comment for a review, in Markdown: the sum, then each commit that is not plainly accepted with its messages, whose
/// explanations are folded. It stays below the 65,536 characters that a comment may have; what is left out is counted.
void write_markdown(std::ostream &out, const std::vector<CommitReport> &commits);

}  // namespace report

#endif
