#ifndef CLI_OUTPUT_FINDINGS_TEXT_H
#define CLI_OUTPUT_FINDINGS_TEXT_H

#include <ostream>
#include <string>
#include <vector>

#include "cli/findings/decided_commit.h"
#include "cli/output/paint.h"

namespace cli {

/// What stands below a verdict: what the device says and what hides behind it, each with its explanation, and how the
/// search went where it did not come to its end. Without a search, the suppressed findings alone.
void write_findings(std::ostream &out, const std::vector<Finding> &findings, const SearchAccount &search,
                    const Paint &paint);

/// "rejected [RULE]: MESSAGE", with what suppresses it.
void write_headline(std::ostream &out, const Finding &finding, const Paint &paint);

/// The parties and what is to be taken back, a line each, indented by three; long lists are cut.
void write_explanation(std::ostream &out, const Finding &finding, const Paint &paint);

/// Which bound ended a search and what may be missing therefore; empty for one that came to its end, or was not wanted.
std::string search_end_text(const SearchAccount &search);

}  // namespace cli

#endif
