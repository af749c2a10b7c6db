#ifndef CLI_INPUT_INPUT_FILES_H
#define CLI_INPUT_INPUT_FILES_H

#include "cli/command_line/arguments.h"
#include "report/input_files.h"

namespace cli {

using report::InputFiles;

/// Finds the files; a missing one is left to its reader. Throws UsageError where the arguments leave one open,
/// element::FileError for a directory that is none, and element::InputError where it holds one configuration or the
/// edit as XML and as JSON, or a candidate and an edit.
InputFiles find_input_files(const InputArguments &arguments);

/// Finds the two configurations alone, under the same conditions.
InputFiles find_configurations(const InputArguments &arguments);

}  // namespace cli

#endif
