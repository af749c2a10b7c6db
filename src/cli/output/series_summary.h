#ifndef CLI_OUTPUT_SERIES_SUMMARY_H
#define CLI_OUTPUT_SERIES_SUMMARY_H

#include <cstddef>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>

#include "cli/children/commit_result.h"

namespace cli {

struct RuleCount {
  std::size_t open = 0;
  std::size_t suppressed = 0;
};

/// Many commits summed up.
struct SeriesSummary {
  std::size_t commits = 0;
  std::size_t accepted = 0;
  std::size_t accepted_with_warnings = 0;
  std::size_t rejected = 0;
  std::size_t not_decided = 0;
  std::map<std::string, RuleCount> findings;  ///< by rule id; "" for messages that the rule table does not know
  ExitStatus worst = ExitStatus::accepted;    ///< an error before a rejection before warnings; the highest of errors

  /// Suppressions that fit no finding of any commit. Nothing is known where a commit was not decided.
  std::set<std::string> unused_suppressions;

  void add(const CommitResult &result);
};

/// The commits by decision, then the findings by rule.
void write_summary(std::ostream &out, const SeriesSummary &summary);

}  // namespace cli

#endif
