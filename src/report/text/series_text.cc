#include "report/text/series_text.h"

#include <fmt/format.h>

#include "report/decision_text.h"
#include "report/escape/printable.h"
#include "report/profile_faults.h"
#include "report/text/explanation_text.h"
#include "report/text/findings_text.h"
#include "report/text/summary_text.h"
#include "report/text/verdict_text.h"

namespace report {
namespace {

/// "2 faults in force".
std::string faults_text(const CommitReport &commit) {
  if (*commit.decision == host::Decision::accepted) return "no fault in force";
  // Without a search nothing but the decision is known.
  if (commit.findings.empty()) return "faults in force";
  return fmt::format("{} in force", count_text(commit.findings.size(), "fault"));
}

std::string outcome_text(const CommitReport &commit, const TextStyle &style) {
  if (!commit.decision) return style(Accent::rejected, "not decided") + ": " + printable(commit.error);
  std::string text(commit.is_audit ? faults_text(commit) : decision_text(*commit.decision));
  if (*commit.decision == host::Decision::accepted) return text;
  return style(*commit.decision == host::Decision::rejected ? Accent::rejected : Accent::warning, text);
}

}  // namespace

void SeriesText::write(const CommitResult &result) {
  write_commit(result.commit);
  for (const CommitReport &rollback : result.commit.rollback) write_commit(rollback);
}

void SeriesText::write_commit(const CommitReport &commit) {
  out_ << printable(commit.name) << ": " << outcome_text(commit, style_) << '\n';
  if (!commit.refusal.empty()) out_ << refusal_text(commit, style_) << '\n';
  for (const MissingLimit &limit : commit.missing_limits) {
    out_ << style_(Accent::warning, to_text(limit, commit.element)) << '\n';
  }
  for (const UnreadableName &name : commit.unreadable) out_ << style_(Accent::warning, to_text(name)) << '\n';
  std::size_t number = 0;
  bool is_device_over = false;
  for (const Finding &finding : commit.findings) {
    if (!finding.from_device && !is_device_over) out_ << "what it would say next:\n";
    is_device_over = !finding.from_device;
    out_ << fmt::format("{}. ", ++number);
    write_headline(out_, finding, style_);
    if (!finding.suppressed) write_explanation(out_, finding, style_);
  }
  const std::string search_end = search_end_text(commit.search);
  if (!search_end.empty()) out_ << search_end << '\n';
  has_gap_ = number != 0;
  if (has_gap_) out_ << '\n';
  out_.flush();
}

void SeriesText::finish(const SeriesSummary &summary, int) {
  if (!has_gap_) out_ << '\n';
  write_summary(out_, summary);
}

}  // namespace report
