#ifndef CLI_INPUT_FILES_H
#define CLI_INPUT_FILES_H

#include <filesystem>

#include "cli/arguments.h"

namespace cli {

/// The three files that make up a commit.
struct InputFiles {
  std::filesystem::path element;
  std::filesystem::path running;
  std::filesystem::path candidate;
};

/// Finds the files and makes sure that they can be opened. Throws UsageError where the arguments leave one open,
/// UnreadableFile, and element::InputError where a directory holds one configuration as XML and as JSON.
InputFiles find_input_files(const InputArguments &arguments);

}  // namespace cli

#endif
