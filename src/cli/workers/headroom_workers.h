#ifndef CLI_WORKERS_HEADROOM_WORKERS_H
#define CLI_WORKERS_HEADROOM_WORKERS_H

#include "cli/command_line/environment.h"
#include "cli/input/headroom_inputs.h"
#include "report/headroom_report.h"

namespace cli {

/// Has this program measure each of the elements in a process of its own, several at once, for the validation library
/// reads a card's limits once a process. Throws element::InputError, before any is measured, where something is wrong
/// with one of them, and WorkerError where measuring one fails.
report::HeadroomReport measure_in_workers(const HeadroomInputs &inputs, const std::filesystem::path &plugin_file,
                                          const Environment &environment);

}  // namespace cli

#endif
