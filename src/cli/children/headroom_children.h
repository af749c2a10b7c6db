#ifndef CLI_CHILDREN_HEADROOM_CHILDREN_H
#define CLI_CHILDREN_HEADROOM_CHILDREN_H

#include "cli/environment.h"
#include "cli/input/headroom_inputs.h"
#include "cli/output/headroom_report.h"

namespace cli {

/// Has this program measure each of the elements in a process of its own, several at once, for the validation library
/// reads a card's limits once a process. Throws element::InputError, before any is measured, where something is wrong
/// with one of them, and ChildError where measuring one fails.
HeadroomReport measure_in_children(const HeadroomInputs &inputs, const std::filesystem::path &plugin_file,
                                   const Environment &environment);

}  // namespace cli

#endif
