#ifndef CLI_OUTPUT_SERIES_OUTPUT_H
#define CLI_OUTPUT_SERIES_OUTPUT_H

#include <memory>
#include <ostream>

#include "cli/arguments.h"
#include "cli/children/commit_result.h"
#include "cli/output/paint.h"
#include "cli/output/series_summary.h"

namespace cli {

/// Writes the results of many commits, in the order in which they are given.
class SeriesOutput {
 public:
  SeriesOutput() = default;
  virtual ~SeriesOutput() = default;
  SeriesOutput(const SeriesOutput &) = delete;
  SeriesOutput &operator=(const SeriesOutput &) = delete;

  virtual void write(CommitResult result) = 0;
  /// To be called once, after the last result.
  virtual void finish(const SeriesSummary &summary) = 0;
};

/// Text and JSON are written result by result; a format whose document must count first, at the end.
std::unique_ptr<SeriesOutput> make_series_output(Format format, std::ostream &out, const Paint &paint);

}  // namespace cli

#endif
