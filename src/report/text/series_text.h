#ifndef REPORT_TEXT_SERIES_TEXT_H
#define REPORT_TEXT_SERIES_TEXT_H

#include <ostream>

#include "report/series_output.h"
#include "report/text/text_style.h"

namespace report {

/// A line a commit, below it what could not be read, its findings with their explanations; at the end the summary.
class SeriesText : public SeriesOutput {
 public:
  SeriesText(std::ostream &out, const TextStyle &style) : out_(out), style_(style) {}

  void write(const CommitResult &result) override;
  void finish(const SeriesSummary &summary, int exit_status) override;

 private:
  void write_commit(const CommitReport &commit);

  std::ostream &out_;
  TextStyle style_;
  bool has_gap_ = false;  ///< what was written last is a blank line
};

}  // namespace report

#endif
