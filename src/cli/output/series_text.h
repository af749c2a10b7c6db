#ifndef CLI_OUTPUT_SERIES_TEXT_H
#define CLI_OUTPUT_SERIES_TEXT_H

#include "cli/output/series_output.h"

namespace cli {

/// A line a commit, below it its findings with their explanations; at the end the summary.
class SeriesText : public SeriesOutput {
 public:
  SeriesText(std::ostream &out, const Paint &paint) : out_(out), paint_(paint) {}

  void write(CommitResult result) override;
  void finish(const SeriesSummary &summary) override;

 private:
  std::ostream &out_;
  Paint paint_;
  bool has_gap_ = false;  ///< what was written last is a blank line
};

}  // namespace cli

#endif
