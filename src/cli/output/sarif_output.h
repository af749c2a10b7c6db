#ifndef CLI_OUTPUT_SARIF_OUTPUT_H
#define CLI_OUTPUT_SARIF_OUTPUT_H

#include <ostream>
#include <vector>

#include "cli/findings/decided_commit.h"

namespace cli {

/// A SARIF 2.1.0 log with one run: the rule table, a result for each finding with its parties as related locations, and
/// a notification for each commit that could not be decided.
void write_sarif(std::ostream &out, const std::vector<DecidedCommit> &commits);

}  // namespace cli

#endif
