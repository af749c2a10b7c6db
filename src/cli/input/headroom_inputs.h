#ifndef CLI_INPUT_HEADROOM_INPUTS_H
#define CLI_INPUT_HEADROOM_INPUTS_H

#include <filesystem>
#include <ostream>
#include <vector>

#include "cli/command_line/arguments.h"
#include "element/datastore/tree.h"

namespace cli {

/// A commit's configurations and the profiles of the elements that it is for, one or more.
struct HeadroomInputs {
  std::filesystem::path running;
  std::filesystem::path candidate;           ///< or the last edit
  std::vector<std::filesystem::path> edits;  ///< in place of the candidate
  std::vector<std::filesystem::path> elements;
  InputArguments arguments;  ///< how the configurations are to be read
};

/// The two configurations, read.
struct HeadroomConfigurations {
  element::Tree running;
  element::Tree candidate;
};

/// Reads them and tells on `err` what was passed over. Throws what reading throws.
HeadroomConfigurations read_configurations(const element::Schema &schema, const HeadroomInputs &inputs,
                                           std::ostream &err);

/// Finds the files as find_input_files does.
HeadroomInputs find_headroom_inputs(const HeadroomArguments &arguments);

}  // namespace cli

#endif
