#include "cli/output/series_output.h"

#include <utility>
#include <vector>

#include "cli/output/github_output.h"
#include "cli/output/junit_output.h"
#include "cli/output/sarif_output.h"
#include "cli/output/series_json.h"
#include "cli/output/series_text.h"

namespace cli {
namespace {

class DocumentAtEnd : public SeriesOutput {
 public:
  using Writer = void (*)(std::ostream &, const std::vector<DecidedCommit> &);

  DocumentAtEnd(std::ostream &out, Writer writer) : out_(out), writer_(writer) {}

  void write(CommitResult result) override { commits_.push_back(std::move(result.commit)); }
  void finish(const SeriesSummary &) override { writer_(out_, commits_); }

 private:
  std::ostream &out_;
  Writer writer_;
  std::vector<DecidedCommit> commits_;
};

}  // namespace

std::unique_ptr<SeriesOutput> make_series_output(Format format, std::ostream &out, const Paint &paint) {
  switch (format) {
    case Format::text:
      return std::make_unique<SeriesText>(out, paint);
    case Format::json:
      return std::make_unique<SeriesJson>(out);
    case Format::sarif:
      return std::make_unique<DocumentAtEnd>(out, write_sarif);
    case Format::junit:
      return std::make_unique<DocumentAtEnd>(out, write_junit);
    case Format::github:
      return std::make_unique<DocumentAtEnd>(out, write_github);
  }
  return nullptr;
}

}  // namespace cli
