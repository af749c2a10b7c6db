#include "cli/output/series_text.h"

#include <fmt/format.h>

#include "cli/output/decision_text.h"
#include "cli/output/findings_text.h"
#include "cli/text/printable.h"

namespace cli {
namespace {

std::string outcome_text(const DecidedCommit &commit, const Paint &paint) {
  if (!commit.decision) return paint(Accent::rejected, "not decided") + ": " + printable(commit.error);
  std::string text(decision_text(*commit.decision));
  if (*commit.decision == host::Decision::accepted) return text;
  return paint(*commit.decision == host::Decision::rejected ? Accent::rejected : Accent::warning, text);
}

}  // namespace

void SeriesText::write(CommitResult result) {
  const DecidedCommit &commit = result.commit;
  out_ << printable(commit.name) << ": " << outcome_text(commit, paint_) << '\n';
  std::size_t number = 0;
  for (const Finding &finding : commit.findings) {
    out_ << fmt::format("{}. ", ++number);
    write_headline(out_, finding, paint_);
    if (!finding.suppressed) write_explanation(out_, finding, paint_);
  }
  const std::string search_end = search_end_text(commit.search);
  if (!search_end.empty()) out_ << search_end << '\n';
  has_gap_ = number != 0;
  if (has_gap_) out_ << '\n';
  out_.flush();
}

void SeriesText::finish(const SeriesSummary &summary) {
  if (!has_gap_) out_ << '\n';
  write_summary(out_, summary);
}

}  // namespace cli
