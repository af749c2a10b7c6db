#ifndef CLI_COMMANDS_ROLLBACK_H
#define CLI_COMMANDS_ROLLBACK_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/input/commit_input.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "report/check_report.h"

namespace cli {

/// Decides the way back of a commit that is called so, from its candidate to its running configuration, and has what
/// draws a message looked for as `search` does. Throws what asking the library throws.
report::CheckReport decide_rollback(const CheckArguments &arguments, const Environment &environment,
                                    const CommitInput &commit, const std::string &name, const host::Plugin &plugin,
                                    host::HostSession &session);

}  // namespace cli

#endif
