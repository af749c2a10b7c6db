#include "cli/input/commit_input.h"

#include <utility>

#include "diagnosis/merged_tree.h"
#include "element/edit/edited_configuration.h"
#include "element/input/configuration.h"

namespace cli {

element::ConfigurationFile read_candidate(const element::Schema &schema, const element::ConfigurationFile &running,
                                          const InputFiles &files, const element::ReadOptions &options) {
  if (files.edits.empty()) return element::read_configuration_file(schema, files.candidate, options);
  return element::edited_configuration(running, files.running, files.edits, options);
}

CommitInput::CommitInput(InputFiles files, const element::ReadOptions &options)
    : files_(std::move(files)),
      profile_(element::read_profile(files_.element)),
      schema_(std::make_shared<const element::Schema>()) {
  element::ConfigurationFile running = element::read_configuration_file(*schema_, files_.running, options);
  element::ConfigurationFile candidate = read_candidate(*schema_, running, files_, options);
  transaction_ = element::make_transaction(std::move(running.tree), std::move(candidate.tree), profile_);
  sources_ = {std::move(running.source), std::move(candidate.source)};
}

CommitInput CommitInput::reversed() const {
  const diagnosis::MergedTree operators(*transaction_);
  CommitInput back;
  back.files_ = {files_.element, files_.candidate, files_.running, {}};
  back.sources_ = {sources_.candidate, sources_.running};
  back.profile_ = profile_;
  back.schema_ = schema_;
  back.transaction_ = element::make_transaction(operators.candidate(), operators.running(), profile_);
  return back;
}

}  // namespace cli
