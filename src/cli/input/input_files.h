#ifndef CLI_INPUT_INPUT_FILES_H
#define CLI_INPUT_INPUT_FILES_H

#include <filesystem>

#include "cli/arguments.h"

namespace cli {

/// The three files that make up a commit.
struct InputFiles {
  std::filesystem::path element;
  std::filesystem::path running;
  std::filesystem::path candidate;
};

/// Finds the files; a missing one is left to its reader. Throws UsageError where the arguments leave one open,
/// element::FileError for a directory that is none, and element::InputError where it holds one configuration as XML
/// and as JSON.
InputFiles find_input_files(const InputArguments &arguments);

}  // namespace cli

#endif
