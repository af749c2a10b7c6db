#ifndef CLI_OUTPUT_GITHUB_OUTPUT_H
#define CLI_OUTPUT_GITHUB_OUTPUT_H

#include <ostream>
#include <vector>

#include "cli/findings/decided_commit.h"

namespace cli {

/// GitHub's workflow commands, one for each finding that is not suppressed and for each commit that could not be
/// decided: "::error" or "::warning" with file, line and the rule as title; the message with its explanation.
void write_github(std::ostream &out, const std::vector<DecidedCommit> &commits);

}  // namespace cli

#endif
