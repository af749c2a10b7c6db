#ifndef CLI_COMMANDS_OUTPUTS_H
#define CLI_COMMANDS_OUTPUTS_H

#include <functional>
#include <memory>
#include <ostream>
#include <vector>

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/terminal/output_stream.h"
#include "cli/terminal/wrapped_stream.h"
#include "report/series_output.h"
#include "report/text/text_style.h"

namespace cli {

/// How the text for people comes about.
enum class TextForm {
  in_steps,  ///< of a single commit, written as its parts are found out
  by_commit  ///< of many, as the other formats
};

/// Where the results of `check` go: standard output and files, each in its format. Every function throws OutputError
/// where one of them cannot be written. Files are there once finish() has returned, else nothing is left of them.
class Outputs {
 public:
  /// Opens the files. What is for people, and has no other place, goes to standard error where standard output is for
  /// a program.
  Outputs(const CheckArguments &arguments, const Environment &environment, TextForm form);

  using TextWriter = std::function<void(std::ostream &, const report::TextStyle &)>;

  /// Writes a part of the text in steps wherever it is wanted, and brings it out.
  void write_text(const TextWriter &part);

  /// Writes a result in all other formats.
  void write(const report::CommitResult &result);

  /// Writes the result of a single commit that cannot be decided, in every format.
  void write_undecided(const report::CommitResult &result);

  void finish(const report::SeriesSummary &summary, ExitStatus status);

  /// Whether what keeps a commit from being decided is to be written as its result; else standard error tells.
  bool tell_errors() const { return arguments_.format != Format::text || !files_.empty(); }

  /// Leaves nothing of the files.
  void discard() { files_.clear(); }

 private:
  struct Text {
    std::ostream &out;
    report::TextStyle style;
    bool is_result = true;  ///< false: it only accompanies a result for a program
  };

  void add(Format format, std::ostream &out, const report::TextStyle &style);
  void require_standard_output() const;

  const CheckArguments &arguments_;
  std::ostream &standard_output_;
  WrappedStream text_on_terminal_;  ///< standard output, for text
  TextForm form_;
  std::vector<std::unique_ptr<OutputStream>> files_;
  std::vector<Text> texts_;
  std::vector<std::unique_ptr<report::SeriesOutput>> documents_;
};

}  // namespace cli

#endif
