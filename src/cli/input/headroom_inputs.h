#ifndef CLI_INPUT_HEADROOM_INPUTS_H
#define CLI_INPUT_HEADROOM_INPUTS_H

#include <filesystem>
#include <vector>

#include "cli/command_line/arguments.h"

namespace cli {

/// A commit's configurations and the profiles of the elements that it is for, one or more.
struct HeadroomInputs {
  std::filesystem::path running;
  std::filesystem::path candidate;
  std::vector<std::filesystem::path> elements;
};

/// Finds the files as find_input_files does.
HeadroomInputs find_headroom_inputs(const HeadroomArguments &arguments);

}  // namespace cli

#endif
