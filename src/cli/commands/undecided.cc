#include "cli/commands/undecided.h"

#include <exception>
#include <vector>

#include "cli/command_line/failure.h"
#include "cli/input/input_files.h"
#include "report/error_place.h"
#include "report/escape/printable.h"

namespace cli {
namespace {

std::vector<std::string> named_files(const CheckArguments &arguments) {
  std::vector<std::string> names = arguments.suppressions;
  try {
    const InputFiles files = find_input_files(arguments.input);
    for (const auto &file : {files.element, files.running, files.candidate}) names.push_back(file.string());
    for (const auto &file : files.edits) names.push_back(file.string());
  } catch (const std::exception &) {
    // That there are no such files is the error itself, or there are many commits.
  }
  std::erase(names, "");
  return names;
}

}  // namespace

report::CommitResult tell_undecided(const CheckArguments &arguments, const Environment &environment,
                                    const std::string &name, Outputs &outputs) {
  const Failure failure = current_failure();
  const bool is_about_commit = failure.status != ExitStatus::usage && failure.status != ExitStatus::unwritable_output;
  if (!is_about_commit || !outputs.tell_errors()) throw;
  report::CommitResult result;
  result.commit.name = name;
  result.commit.error = failure.text;
  result.commit.error_place = report::error_place(failure.text, named_files(arguments));
  result.exit_status = static_cast<int>(failure.status);
  environment.err << "vpnval: " << report::printable(failure.text) << '\n';
  outputs.write_undecided(result);
  return result;
}

}  // namespace cli
