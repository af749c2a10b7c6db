#ifndef CLI_COMMANDS_UNDECIDED_H
#define CLI_COMMANDS_UNDECIDED_H

#include <ostream>
#include <string>
#include <string_view>

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/commands/outputs.h"
#include "report/escape/printable.h"

namespace cli {

/// Tells of lines of suppression files that suppress nothing, and why: "unused", "expired".
template <typename Lines>
void tell_suppressions(std::ostream &err, std::string_view why, const Lines &lines) {
  for (const std::string &line : lines) {
    err << "vpnval: " << why << " suppression: " << report::printable(line) << '\n';
  }
}

/// To be called while an exception is handled that keeps `name` from being decided: writes it as the result of a commit
/// of this name and tells it on standard error. Throws it on where no output takes it, or it is not about the commit: a
/// wrong command line, an output that cannot be written, memory that has run out.
report::CommitResult tell_undecided(const CheckArguments &arguments, const Environment &environment,
                                    const std::string &name, Outputs &outputs);

}  // namespace cli

#endif
