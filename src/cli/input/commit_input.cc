#include "cli/input/commit_input.h"

#include <utility>

#include "element/input/configuration.h"

namespace cli {

CommitInput::CommitInput(InputFiles files) : files_(std::move(files)), profile_(element::read_profile(files_.element)) {
  element::Tree running = element::read_configuration(schema_, files_.running);
  element::Tree candidate = element::read_configuration(schema_, files_.candidate);
  transaction_ = element::make_transaction(std::move(running), std::move(candidate), profile_);
}

}  // namespace cli
