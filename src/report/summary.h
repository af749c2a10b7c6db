#ifndef REPORT_SUMMARY_H
#define REPORT_SUMMARY_H

#include <cstddef>
#include <map>
#include <set>
#include <string>

#include "report/commit_report.h"

namespace report {

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
  std::size_t with_foreign_nodes = 0;         ///< commits that have nodes of other modules, which were passed over
  std::map<std::string, RuleCount> findings;  ///< by rule id; "" for messages that the rule table does not know

  /// Suppressions that fit no finding of any commit. Empty as soon as one commit was not decided.
  std::set<std::string> unused_suppressions;
  std::set<std::string> expired_suppressions;

  void add(const CommitReport &commit);
};

}  // namespace report

#endif
