#include "report/commit_report.h"

#include <algorithm>

namespace report {

bool is_proven_complete(const SearchReport &search) {
  return search.all_faults && search.end == SearchEnd::complete && search.unproven_rules.empty();
}

std::size_t count_open(const std::vector<Finding> &findings, bool warnings) {
  const auto is_open = [warnings](const Finding &finding) {
    return finding.is_warning == warnings && !finding.suppressed;
  };
  return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), is_open));
}

bool has_open_warning(const CommitReport &commit) {
  if (commit.decision != host::Decision::accepted_with_warnings) return false;
  return count_open(commit.findings, true) != 0 || !is_proven_complete(commit.search);
}

}  // namespace report
