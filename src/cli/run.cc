#include "cli/run.h"

#include <new>

#include "cli/command_line/arguments.h"
#include "cli/command_line/errors.h"
#include "cli/command_line/failure.h"
#include "cli/commands/apply_command.h"
#include "cli/commands/check_command.h"
#include "cli/commands/check_series.h"
#include "cli/commands/explain_command.h"
#include "cli/commands/fetch_command.h"
#include "cli/commands/headroom_command.h"
#include "cli/commands/maintenance_program.h"
#include "cli/commands/map_command.h"
#include "cli/commands/plan_command.h"
#include "cli/commands/profile_command.h"
#include "cli/commands/serve_command.h"
#include "cli/commands/show_command.h"
#include "report/escape/printable.h"

namespace cli {
namespace {

struct CarryOut {
  const Environment &environment;

  ExitStatus operator()(ExitStatus status) const { return status; }
  ExitStatus operator()(const CheckArguments &arguments) const {
    std::ostream nowhere(nullptr);
    const Environment told = arguments.quiet ? with_errors_to(nowhere, environment) : environment;
    return arguments.is_series() ? check_series(arguments, told) : check(arguments, told);
  }
  ExitStatus operator()(const ShowArguments &arguments) const { return show(arguments, environment); }
  ExitStatus operator()(const ExplainArguments &arguments) const { return explain(arguments, environment); }
  ExitStatus operator()(const HeadroomArguments &arguments) const { return headroom(arguments, environment); }
  ExitStatus operator()(const MapArguments &arguments) const { return map(arguments, environment); }
  ExitStatus operator()(const PlanArguments &arguments) const { return plan(arguments, environment); }
  ExitStatus operator()(const ApplyArguments &arguments) const { return apply(arguments, environment); }
  ExitStatus operator()(const ProfileArguments &arguments) const { return make_profile(arguments, environment); }
  ExitStatus operator()(const ServeArguments &arguments) const { return serve_element(arguments, environment); }
  ExitStatus operator()(const FetchArguments &arguments) const { return fetch(arguments, environment); }
  ExitStatus operator()(const MaintenanceArguments &arguments) const {
    return become_maintenance_program(arguments, environment);
  }
};

ExitStatus run_and_flush(const Command &command, const std::vector<std::string> &arguments,
                         const Environment &environment) {
  const ExitStatus status = command(arguments, environment);
  environment.out.flush();
  if (!environment.out) throw OutputError("standard output cannot be written");
  return status;
}

}  // namespace

ExitStatus run_command(const std::vector<std::string> &arguments, const Environment &environment) {
  return std::visit(CarryOut{environment}, parse_arguments(arguments, environment));
}

ExitStatus run(const std::vector<std::string> &arguments, const Environment &environment) {
  return run_guarded(run_command, arguments, environment);
}

ExitStatus run_guarded(const Command &command, const std::vector<std::string> &arguments,
                       const Environment &environment) {
  try {
    try {
      return run_and_flush(command, arguments, environment);
    } catch (...) {
      const Failure failure = current_failure();
      environment.out.flush();
      environment.err << "vpnval: " << report::printable(failure.text) << '\n';
      return failure.status;
    }
  } catch (const std::bad_alloc &) {
    // Nothing that allocates: what was being written may have been cut short.
    environment.err << "vpnval: out of memory\n";
    return ExitStatus::out_of_memory;
  }
}

}  // namespace cli
