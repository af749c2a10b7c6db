#include "cli/input/commit_input.h"

#include <utility>

#include "diagnosis/merged_tree.h"
#include "element/input/configuration.h"

namespace cli {

CommitInput::CommitInput(InputFiles files)
    : files_(std::move(files)),
      profile_(element::read_profile(files_.element)),
      schema_(std::make_shared<const element::Schema>()) {
  element::ConfigurationWithText running = element::read_configuration_with_text(*schema_, files_.running);
  element::ConfigurationWithText candidate = element::read_configuration_with_text(*schema_, files_.candidate);
  transaction_ = element::make_transaction(std::move(running.tree), std::move(candidate.tree), profile_);
  texts_ = {std::move(running.text), std::move(candidate.text)};
}

CommitInput CommitInput::reversed() const {
  const diagnosis::MergedTree operators(*transaction_);
  CommitInput back;
  back.files_ = {files_.element, files_.candidate, files_.running};
  back.texts_ = {texts_.candidate, texts_.running};
  back.profile_ = profile_;
  back.schema_ = schema_;
  back.transaction_ = element::make_transaction(operators.candidate(), operators.running(), profile_);
  return back;
}

}  // namespace cli
