#include "cli/output/series_summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace cli {
namespace {

/// Errors begin above all verdicts, whose order is not that of their numbers.
int badness(ExitStatus status) {
  if (status == ExitStatus::accepted) return 0;
  if (status == ExitStatus::accepted_with_warnings) return 1;
  if (status == ExitStatus::rejected) return 2;
  return static_cast<int>(status);
}

std::size_t &count_of(SeriesSummary &summary, const DecidedCommit &commit) {
  if (!commit.decision) return summary.not_decided;
  if (*commit.decision == host::Decision::rejected) return summary.rejected;
  if (*commit.decision == host::Decision::accepted_with_warnings) return summary.accepted_with_warnings;
  return summary.accepted;
}

}  // namespace

void SeriesSummary::add(const CommitResult &result) {
  const DecidedCommit &commit = result.commit;
  const std::set<std::string> unused(commit.unused_suppressions.begin(), commit.unused_suppressions.end());
  if (commits == 0) unused_suppressions = unused;
  std::erase_if(unused_suppressions, [&unused](const std::string &line) { return !unused.contains(line); });

  ++commits;
  ++count_of(*this, commit);
  worst = std::max(worst, result.status, [](ExitStatus a, ExitStatus b) { return badness(a) < badness(b); });
  for (const Finding &finding : commit.findings) {
    RuleCount &count = findings[finding.rule];
    ++(finding.suppressed ? count.suppressed : count.open);
  }
}

void write_summary(std::ostream &out, const SeriesSummary &summary) {
  out << fmt::format("commits: {}\n", summary.commits);
  for (const auto &[count, text] : {std::pair{summary.accepted, "accepted"},
                                    {summary.accepted_with_warnings, "accepted with warnings"},
                                    {summary.rejected, "rejected"},
                                    {summary.not_decided, "not decided"}}) {
    out << fmt::format("  {:>6} {}\n", count, text);
  }
  if (summary.findings.empty()) return;
  out << "findings by rule:\n";
  for (const auto &[rule, count] : summary.findings) {
    out << fmt::format("  {:>6} {}", count.open + count.suppressed, rule.empty() ? "without a rule" : rule);
    if (count.suppressed != 0) out << fmt::format(", {} of them suppressed", count.suppressed);
    out << '\n';
  }
}

}  // namespace cli
