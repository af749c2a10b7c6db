#ifndef REPORT_SERIES_OUTPUT_H
#define REPORT_SERIES_OUTPUT_H

#include <string>

#include "report/commit_report.h"
#include "report/summary.h"

namespace report {

/// One commit, with what deciding it alone has left.
struct CommitResult {
  CommitReport commit;
  int exit_status = 0;  ///< of the program that decided this commit alone
  std::string verdict;  ///< as JSON, in one line; empty where there is an error instead
};

/// Writes the results of commits, one or many, in the order in which they are given.
class SeriesOutput {
 public:
  SeriesOutput() = default;
  virtual ~SeriesOutput() = default;
  SeriesOutput(const SeriesOutput &) = delete;
  SeriesOutput &operator=(const SeriesOutput &) = delete;

  virtual void write(const CommitResult &result) = 0;

  /// To be called once, after the last result. `exit_status` is the worst of all.
  virtual void finish(const SeriesSummary &summary, int exit_status) = 0;
};

}  // namespace report

#endif
