#include "cli/commands/outputs.h"

#include <utility>

#include "cli/command_line/errors.h"
#include "cli/terminal/colour.h"
#include "report/ci/github.h"
#include "report/ci/junit.h"
#include "report/ci/markdown.h"
#include "report/ci/sarif.h"
#include "report/json/series_json.h"
#include "report/rollback.h"
#include "report/text/series_text.h"

namespace cli {
namespace {

/// Formats whose documents begin with counts or rules.
class DocumentAtEnd : public report::SeriesOutput {
 public:
  using Writer = std::function<void(std::ostream &, const std::vector<report::CommitReport> &)>;

  DocumentAtEnd(std::ostream &out, Writer writer) : out_(out), writer_(std::move(writer)) {}

  void write(const report::CommitResult &result) override { commits_.push_back(result.commit); }
  void finish(const report::SeriesSummary &, int) override { writer_(out_, report::with_rollbacks(commits_)); }

 private:
  std::ostream &out_;
  Writer writer_;
  std::vector<report::CommitReport> commits_;
};

std::unique_ptr<report::SeriesOutput> make_document(Format format, std::ostream &out, const report::TextStyle &style,
                                                    bool fail_on_warn) {
  switch (format) {
    case Format::text:
      return std::make_unique<report::SeriesText>(out, style);
    case Format::json:
      return std::make_unique<report::SeriesJson>(out);
    case Format::sarif:
      return std::make_unique<DocumentAtEnd>(out, report::write_sarif);
    case Format::junit:
      return std::make_unique<DocumentAtEnd>(
          out, [fail_on_warn](std::ostream &stream, const std::vector<report::CommitReport> &commits) {
            report::write_junit(stream, commits, fail_on_warn);
          });
    case Format::github:
      return std::make_unique<DocumentAtEnd>(out, report::write_github);
    case Format::markdown:
      return std::make_unique<DocumentAtEnd>(out, report::write_markdown);
  }
  return nullptr;
}

}  // namespace

Outputs::Outputs(const CheckArguments &arguments, const Environment &environment, TextForm form)
    : arguments_(arguments),
      standard_output_(environment.out),
      text_on_terminal_(environment.out, environment.columns),
      form_(form) {
  const report::TextStyle style_elsewhere(arguments.colour == Colour::always);
  bool is_standard_output_free = false;
  for (const OutputArgument &output : arguments.outputs) {
    files_.push_back(std::make_unique<OutputStream>(output.file));
    add(output.format.value_or(arguments.format), *files_.back(), style_elsewhere);
    if (!output.format) is_standard_output_free = true;
  }
  const bool is_for_people = arguments.format == Format::text;
  if (!is_standard_output_free && !(is_for_people && arguments.quiet)) {
    std::ostream &out = is_for_people ? text_on_terminal_ : environment.out;
    add(arguments.format, out, report::TextStyle(wants_colour(arguments.colour, environment)));
  }
  if (!is_for_people && form == TextForm::in_steps) texts_.push_back({environment.err, style_elsewhere, false});
}

void Outputs::add(Format format, std::ostream &out, const report::TextStyle &style) {
  if (format == Format::text && form_ == TextForm::in_steps) {
    texts_.push_back({out, style});
  } else {
    documents_.push_back(make_document(format, out, style, arguments_.fail_on_warn));
  }
}

void Outputs::write_text(const TextWriter &part) {
  for (const Text &text : texts_) {
    part(text.out, text.style);
    text.out.flush();
  }
  require_standard_output();
}

void Outputs::write(const report::CommitResult &result) {
  for (const auto &document : documents_) document->write(result);
  require_standard_output();
}

void Outputs::write_undecided(const report::CommitResult &result) {
  for (const Text &text : texts_) {
    if (text.is_result) report::SeriesText(text.out, text.style).write(result);
  }
  write(result);
}

void Outputs::finish(const report::SeriesSummary &summary, ExitStatus status) {
  for (const auto &document : documents_) document->finish(summary, static_cast<int>(status));
  standard_output_.flush();
  require_standard_output();
  for (const auto &file : files_) file->publish();
}

void Outputs::require_standard_output() const {
  if (!standard_output_) throw OutputError("standard output cannot be written");
}

}  // namespace cli
