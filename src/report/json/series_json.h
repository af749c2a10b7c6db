#ifndef REPORT_JSON_SERIES_JSON_H
#define REPORT_JSON_SERIES_JSON_H

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "report/series_output.h"

namespace report {

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
inline constexpr int json_schema_version = 3;

/// One JSON document, a line a commit, also of a single one; docs/verdict.schema.json describes it.
class SeriesJson : public SeriesOutput {
 public:
  explicit SeriesJson(std::ostream &out) : out_(out) {}

  void write(const CommitResult &result) override;
  void finish(const SeriesSummary &summary, int exit_status) override;

 private:
  std::ostream &out_;
  bool has_begun_ = false;
};

/// A text that is no document of a single commit; what() says why.
class DocumentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The result of the one commit of a document that SeriesJson wrote; `name` is what it is to be called. Throws
/// DocumentError.
CommitResult read_single_result(std::string_view document, const std::string &name);

}  // namespace report

#endif
