#include "cli/input/commit_input.h"

#include <utility>

#include "diagnosis/merged_tree.h"
#include "element/edit/edited_configuration.h"
#include "element/input/configuration.h"
#include "element/input/input_fault.h"
#include "element/projection/unknown_interface.h"
#include "report/file_place.h"

namespace cli {

element::ConfigurationFile read_candidate(const element::Schema &schema, const element::ConfigurationFile &running,
                                          const InputFiles &files, const element::ReadOptions &options) {
  if (files.edits.empty()) return element::read_configuration_file(schema, files.candidate, options);
  return element::edited_configuration(running, files.running, files.edits, options);
}

namespace {

element::InputPlace place_of(const element::UnknownInterface &error, const InputFiles &files,
                             const report::InputSources &sources) {
  const bool in_running = error.is_in_running();
  const report::FilePlace place = in_running ? report::place_of(error.path(), files.running, sources.running)
                                             : report::place_of(error.path(), files.candidate, sources.candidate);
  return {place.file, place.line, to_text(error.path())};
}

}  // namespace

CommitInput::CommitInput(InputFiles files, const element::ReadOptions &options)
    : files_(std::move(files)),
      profile_(element::read_profile(files_.element)),
      schema_(std::make_shared<const element::Schema>()) {
  element::ConfigurationFile running{element::Tree(*schema_), {}};
  if (!files_.running.empty()) running = element::read_configuration_file(*schema_, files_.running, options);
  element::ConfigurationFile candidate = read_candidate(*schema_, running, files_, options);
  sources_ = {std::move(running.source), std::move(candidate.source)};
  try {
    transaction_ = element::make_transaction(std::move(running.tree), std::move(candidate.tree), profile_);
  } catch (const element::UnknownInterface &error) {
    throw element::input_fault(place_of(error, files_, sources_), error.fault(), error.expected);
  }
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
