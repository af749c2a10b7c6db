#ifndef CLI_COMMANDS_SEARCH_H
#define CLI_COMMANDS_SEARCH_H

#include "cli/command_line/arguments.h"
#include "cli/command_line/environment.h"
#include "cli/input/commit_input.h"
#include "diagnosis/diagnose.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "report/check_report.h"

namespace cli {

/// Why a search ended, as reports tell it.
report::SearchEnd end_of(diagnosis::SearchEnd end);

/// Has what draws each message of the device's verdict looked for, within the budget, and shows on `err` how far that
/// is. Nothing is looked for on an accepted commit, nor with a budget that allows no search. SIGINT and SIGTERM end
/// the search, and what was found by then is returned.
diagnosis::Diagnosis find_faults(const diagnosis::Options &options, const Environment &environment,
                                 const CommitInput &input, const host::Plugin &plugin, host::HostSession &session,
                                 const host::Verdict &verdict);

/// Fills in the findings and the search's account of a report that has its verdict: has what draws each message looked
/// for, within the budget, and shows on `err` how far that is. Throws what reading and asking the library throw.
void search(const CheckArguments &arguments, const Environment &environment, const CommitInput &input,
            const host::Plugin &plugin, host::HostSession &session, report::CheckReport &report);

}  // namespace cli

#endif
