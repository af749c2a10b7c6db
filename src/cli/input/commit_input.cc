#include "cli/input/commit_input.h"

#include <utility>

#include "element/input/configuration.h"

namespace cli {

CommitInput::CommitInput(InputFiles files) : files_(std::move(files)), profile_(element::read_profile(files_.element)) {
  element::ConfigurationWithText running = element::read_configuration_with_text(schema_, files_.running);
  element::ConfigurationWithText candidate = element::read_configuration_with_text(schema_, files_.candidate);
  transaction_ = element::make_transaction(std::move(running.tree), std::move(candidate.tree), profile_);
  texts_ = {std::move(running.text), std::move(candidate.text)};
}

}  // namespace cli
