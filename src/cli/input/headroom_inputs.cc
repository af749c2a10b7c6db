#include "cli/input/headroom_inputs.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "cli/command_line/errors.h"
#include "cli/input/commit_input.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/input_files.h"
#include "element/input/configuration.h"
#include "element/input/input_file.h"

namespace cli {

HeadroomConfigurations read_configurations(const element::Schema &schema, const HeadroomInputs &inputs,
                                           std::ostream &err) {
  const element::ReadOptions options = read_options(inputs.arguments);
  element::ConfigurationFile running = element::read_configuration_file(schema, inputs.running, options);
  const InputFiles files{"", inputs.running, inputs.candidate, inputs.edits};
  element::ConfigurationFile candidate = read_candidate(schema, running, files, options);
  tell_foreign_nodes(err, inputs.arguments, {std::move(running.source), std::move(candidate.source)});
  return {std::move(running.tree), std::move(candidate.tree)};
}

namespace {

/// Each of several elements is measured by a process that reads the configurations anew.
void require_files(const HeadroomArguments &arguments) {
  std::vector<std::string> names = arguments.elements;
  names.insert(names.end(), {arguments.input.running, arguments.input.candidate});
  names.insert(names.end(), arguments.input.edits.begin(), arguments.input.edits.end());
  if (std::count(names.begin(), names.end(), element::kStandardInput) == 0) return;
  throw UsageError("- with several elements; expected files, for they are read once for each");
}

}  // namespace

HeadroomInputs find_headroom_inputs(const HeadroomArguments &arguments) {
  InputArguments first = arguments.input;
  if (!arguments.elements.empty()) first.element = arguments.elements.front();
  InputFiles files = find_input_files(first);
  HeadroomInputs inputs{
      std::move(files.running), std::move(files.candidate), std::move(files.edits), {}, arguments.input};
  inputs.elements.assign(arguments.elements.begin(), arguments.elements.end());
  if (inputs.elements.empty()) inputs.elements.push_back(std::move(files.element));
  if (inputs.elements.size() > 1) require_files(arguments);
  return inputs;
}

}  // namespace cli
