#include "cli/commands/output_format.h"

#include <utility>
#include <vector>

#include "report/ci/github.h"
#include "report/ci/junit.h"
#include "report/ci/sarif.h"
#include "report/json/series_json.h"
#include "report/json/verdict_json.h"
#include "report/rollback.h"
#include "report/text/series_text.h"

namespace cli {
namespace {

class DocumentAtEnd : public report::SeriesOutput {
 public:
  using Writer = void (*)(std::ostream &, const std::vector<report::CommitReport> &);

  DocumentAtEnd(std::ostream &out, Writer writer) : out_(out), writer_(writer) {}

  void write(report::CommitResult result) override { commits_.push_back(std::move(result.commit)); }
  void finish(const report::SeriesSummary &, int) override { writer_(out_, report::with_rollbacks(commits_)); }

 private:
  std::ostream &out_;
  Writer writer_;
  std::vector<report::CommitReport> commits_;
};

}  // namespace

void write_document(std::ostream &out, Format format, const report::CheckReport &report) {
  switch (format) {
    case Format::text:
      return;
    case Format::json:
      return report::write_json(out, report);
    case Format::sarif:
      return report::write_sarif(out, report::with_rollbacks({report.commit}));
    case Format::junit:
      return report::write_junit(out, report::with_rollbacks({report.commit}));
    case Format::github:
      return report::write_github(out, report::with_rollbacks({report.commit}));
  }
}

std::unique_ptr<report::SeriesOutput> make_series_output(Format format, std::ostream &out,
                                                         const report::TextStyle &style) {
  switch (format) {
    case Format::text:
      return std::make_unique<report::SeriesText>(out, style);
    case Format::json:
      return std::make_unique<report::SeriesJson>(out);
    case Format::sarif:
      return std::make_unique<DocumentAtEnd>(out, report::write_sarif);
    case Format::junit:
      return std::make_unique<DocumentAtEnd>(out, report::write_junit);
    case Format::github:
      return std::make_unique<DocumentAtEnd>(out, report::write_github);
  }
  return nullptr;
}

}  // namespace cli
