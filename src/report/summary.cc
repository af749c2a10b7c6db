#include "report/summary.h"

namespace report {
namespace {

std::size_t &count_of(SeriesSummary &summary, const CommitReport &commit) {
  if (!commit.decision) return summary.not_decided;
  if (*commit.decision == host::Decision::rejected) return summary.rejected;
  if (*commit.decision == host::Decision::accepted_with_warnings) return summary.accepted_with_warnings;
  return summary.accepted;
}

}  // namespace

void SeriesSummary::add(const CommitReport &commit) {
  const std::set<std::string> unused(commit.unused_suppressions.begin(), commit.unused_suppressions.end());
  if (commits == 0) unused_suppressions = unused;
  std::erase_if(unused_suppressions, [&unused](const std::string &line) { return !unused.contains(line); });

  expired_suppressions.insert(commit.expired_suppressions.begin(), commit.expired_suppressions.end());
  ++commits;
  ++count_of(*this, commit);
  if (!commit.passed_over.is_nothing()) ++with_foreign_nodes;
  for (const Finding &finding : commit.findings) {
    RuleCount &count = findings[finding.rule];
    ++(finding.suppressed ? count.suppressed : count.open);
  }
}

}  // namespace report
