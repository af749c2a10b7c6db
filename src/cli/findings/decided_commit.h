#ifndef CLI_FINDINGS_DECIDED_COMMIT_H
#define CLI_FINDINGS_DECIDED_COMMIT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/findings/finding.h"
#include "host/run/commit.h"

namespace cli {

/// How the search for what draws the messages went.
struct SearchAccount {
  bool all_faults = false;  ///< it went on behind what the device says
  std::uint64_t calls = 0;  ///< how often the library was asked about a reduced commit
  std::uint64_t budget_calls = 0;
  double budget_seconds = 0;
  std::string ended_by;  ///< what ended it early: "calls", "time" or "breach"; empty: it came to its end
  std::string breach;    ///< what the library did against its contract when it was asked about a smaller commit
};

/// A commit that was decided, or could not be, as the formats for many commits show it.
struct DecidedCommit {
  std::string name;                        ///< as its user named it: its folder, or the candidate's file
  std::optional<host::Decision> decision;  ///< nothing: there is an error instead
  std::string error;                       ///< why it could not be decided, one line
  std::vector<Finding> findings;
  SearchAccount search;
  std::vector<std::string> unused_suppressions;  ///< "FILE:LINE: RULE PATH" of those that fit no finding
};

/// How many rejections, or warnings, are not suppressed.
std::size_t count_open(const std::vector<Finding> &findings, bool warnings);

}  // namespace cli

#endif
