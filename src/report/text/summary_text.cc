#include "report/text/summary_text.h"

#include <fmt/format.h>

#include <utility>

namespace report {

void write_summary(std::ostream &out, const SeriesSummary &summary) {
  out << fmt::format("commits: {}\n", summary.commits);
  for (const auto &[count, text] : {std::pair{summary.accepted, "accepted"},
                                    {summary.accepted_with_warnings, "accepted with warnings"},
                                    {summary.rejected, "rejected"},
                                    {summary.not_decided, "not decided"}}) {
    out << fmt::format("  {:>6} {}\n", count, text);
  }
  if (summary.with_foreign_nodes != 0) {
    out << fmt::format("commits with nodes of other modules, passed over: {}\n", summary.with_foreign_nodes);
  }
  if (summary.findings.empty()) return;
  out << "findings by rule:\n";
  for (const auto &[rule, count] : summary.findings) {
    out << fmt::format("  {:>6} {}", count.open + count.suppressed, rule.empty() ? "without a rule" : rule);
    if (count.suppressed != 0) out << fmt::format(", {} of them suppressed", count.suppressed);
    out << '\n';
  }
}

}  // namespace report
