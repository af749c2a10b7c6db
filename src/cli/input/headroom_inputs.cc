#include "cli/input/headroom_inputs.h"

#include <utility>

#include "cli/input/commit_input.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/input_files.h"
#include "element/input/configuration.h"

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

HeadroomInputs find_headroom_inputs(const HeadroomArguments &arguments) {
  InputArguments first = arguments.input;
  if (!arguments.elements.empty()) first.element = arguments.elements.front();
  InputFiles files = find_input_files(first);
  HeadroomInputs inputs{
      std::move(files.running), std::move(files.candidate), std::move(files.edits), {}, arguments.input};
  inputs.elements.assign(arguments.elements.begin(), arguments.elements.end());
  if (inputs.elements.empty()) inputs.elements.push_back(std::move(files.element));
  return inputs;
}

}  // namespace cli
