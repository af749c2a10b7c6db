#include "cli/commands/rollback.h"

#include "cli/commands/search.h"
#include "report/rollback.h"

namespace cli {

report::CheckReport decide_rollback(const CheckArguments &arguments, const Environment &environment,
                                    const CommitInput &commit, const std::string &name, const host::Plugin &plugin,
                                    host::HostSession &session) {
  const CommitInput back = commit.reversed();
  report::CheckReport report;
  report.commit.name = report::rollback_name(name);
  report.commit.is_rollback = true;
  report.inputs = back.files();
  report.verdict = host::validate_commit(plugin, session, back.transaction(), {.all_points = arguments.all_points});
  report.commit.decision = report.verdict.decision;
  search(arguments, environment, back, plugin, session, report);
  return report;
}

}  // namespace cli
