#ifndef REPORT_JSON_SERIES_JSON_H
#define REPORT_JSON_SERIES_JSON_H

#include <ostream>

#include "report/series_output.h"

namespace report {

/// One JSON document, a line a commit; docs/verdict.schema.json describes it.
class SeriesJson : public SeriesOutput {
 public:
  explicit SeriesJson(std::ostream &out) : out_(out) {}

  void write(CommitResult result) override;
  void finish(const SeriesSummary &summary, int exit_status) override;

 private:
  std::ostream &out_;
  bool has_begun_ = false;
};

}  // namespace report

#endif
