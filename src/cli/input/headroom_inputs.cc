#include "cli/input/headroom_inputs.h"

#include <utility>

#include "cli/input/input_files.h"

namespace cli {

HeadroomInputs find_headroom_inputs(const HeadroomArguments &arguments) {
  InputArguments first = arguments.input;
  if (!arguments.elements.empty()) first.element = arguments.elements.front();
  InputFiles files = find_input_files(first);
  HeadroomInputs inputs{std::move(files.running), std::move(files.candidate), {}};
  inputs.elements.assign(arguments.elements.begin(), arguments.elements.end());
  if (inputs.elements.empty()) inputs.elements.push_back(std::move(files.element));
  return inputs;
}

}  // namespace cli
