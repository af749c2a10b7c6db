#ifndef CLI_INPUT_FOREIGN_NODES_H
#define CLI_INPUT_FOREIGN_NODES_H

#include <ostream>

#include "cli/command_line/arguments.h"
#include "element/input/own_configuration.h"
#include "report/input_files.h"

namespace cli {

/// How configurations are to be read.
element::ReadOptions read_options(const InputArguments &input);

/// Tells in a line how many nodes of other modules the configurations hold that were passed over, and lists the modules
/// if the arguments ask for it. Writes nothing where nothing was passed over.
void tell_foreign_nodes(std::ostream &out, const InputArguments &input, const report::InputSources &sources);

}  // namespace cli

#endif
