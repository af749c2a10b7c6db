#ifndef CLI_OUTPUT_SERIES_JSON_H
#define CLI_OUTPUT_SERIES_JSON_H

#include "cli/output/series_output.h"

namespace cli {

/// One JSON document, a line a commit; docs/verdict.schema.json describes it.
class SeriesJson : public SeriesOutput {
 public:
  explicit SeriesJson(std::ostream &out) : out_(out) {}

  void write(CommitResult result) override;
  void finish(const SeriesSummary &summary) override;

 private:
  std::ostream &out_;
  bool has_begun_ = false;
};

}  // namespace cli

#endif
