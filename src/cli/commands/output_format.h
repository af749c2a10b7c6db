#ifndef CLI_COMMANDS_OUTPUT_FORMAT_H
#define CLI_COMMANDS_OUTPUT_FORMAT_H

#include <memory>
#include <ostream>

#include "cli/command_line/arguments.h"
#include "report/check_report.h"
#include "report/series_output.h"
#include "report/text/text_style.h"

namespace cli {

/// Writes the report of one commit in a format for programs. Text is written step by step by the command, so nothing
/// is written here for Format::text.
void write_document(std::ostream &out, Format format, const report::CheckReport &report);

/// The writer of many commits' results in the format. Text and JSON are written result by result; SARIF, JUnit and
/// GitHub's commands at the end, because their documents begin with counts or rules.
std::unique_ptr<report::SeriesOutput> make_series_output(Format format, std::ostream &out,
                                                         const report::TextStyle &style);

}  // namespace cli

#endif
