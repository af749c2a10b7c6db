#include "cli/run.h"

#include <exception>
#include <new>
#include <string_view>

#include "cli/command_line/arguments.h"
#include "cli/command_line/errors.h"
#include "cli/commands/apply_command.h"
#include "cli/commands/check_command.h"
#include "cli/commands/check_series.h"
#include "cli/commands/explain_command.h"
#include "cli/commands/fetch_command.h"
#include "cli/commands/headroom_command.h"
#include "cli/commands/map_command.h"
#include "cli/commands/plan_command.h"
#include "cli/commands/show_command.h"
#include "element/input/input_error.h"
#include "host/run/commit.h"
#include "host/run/plugin.h"
#include "report/escape/printable.h"

namespace cli {
namespace {

struct CarryOut {
  const Environment &environment;

  ExitStatus operator()(ExitStatus status) const { return status; }
  ExitStatus operator()(const CheckArguments &arguments) const {
    return arguments.is_series() ? check_series(arguments, environment) : check(arguments, environment);
  }
  ExitStatus operator()(const ShowArguments &arguments) const { return show(arguments, environment); }
  ExitStatus operator()(const ExplainArguments &arguments) const { return explain(arguments, environment); }
  ExitStatus operator()(const HeadroomArguments &arguments) const { return headroom(arguments, environment); }
  ExitStatus operator()(const MapArguments &arguments) const { return map(arguments, environment); }
  ExitStatus operator()(const PlanArguments &arguments) const { return plan(arguments, environment); }
  ExitStatus operator()(const ApplyArguments &arguments) const { return apply(arguments, environment); }
  ExitStatus operator()(const FetchArguments &arguments) const { return fetch(arguments, environment); }
};

ExitStatus run_command(const std::vector<std::string> &arguments, const Environment &environment) {
  const ExitStatus status = std::visit(CarryOut{environment}, parse_arguments(arguments, environment));
  environment.out.flush();
  if (!environment.out) throw OutputError("standard output cannot be written");
  return status;
}

}  // namespace

ExitStatus run(const std::vector<std::string> &arguments, const Environment &environment) {
  const auto fail = [&environment](const std::exception &error, ExitStatus status) {
    environment.out.flush();
    environment.err << "vpnval: " << report::printable(error.what()) << '\n';
    return status;
  };
  try {
    return run_command(arguments, environment);
  } catch (const UsageError &error) {
    return fail(error, ExitStatus::usage);
  } catch (const WorkerError &error) {
    return fail(error, error.status);
  } catch (const element::FileError &error) {
    return fail(error, ExitStatus::unreadable_file);
  } catch (const element::InputError &error) {
    return fail(error, ExitStatus::bad_input);
  } catch (const OutputFileError &error) {
    return fail(error, ExitStatus::unwritable_file);
  } catch (const ElementError &error) {
    return fail(error, ExitStatus::no_session);
  } catch (const host::LoadError &error) {
    return fail(error, ExitStatus::no_plugin);
  } catch (const std::bad_alloc &) {
    // Nothing that allocates: what was being written may have been cut short.
    environment.err << "vpnval: out of memory\n";
    return ExitStatus::out_of_memory;
  } catch (const std::exception &error) {
    return fail(error, ExitStatus::internal);
  }
}

}  // namespace cli
