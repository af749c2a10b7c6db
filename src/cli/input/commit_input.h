#ifndef CLI_INPUT_COMMIT_INPUT_H
#define CLI_INPUT_COMMIT_INPUT_H

#include <memory>

#include "cli/input/input_files.h"
#include "element/datastore/transaction.h"
#include "element/input/configuration.h"
#include "element/profile/profile.h"
#include "element/schema/schema.h"

namespace cli {

/// The configuration to commit: of its own file, or made of the running one by the edits. Throws as CommitInput does.
element::ConfigurationFile read_candidate(const element::Schema &schema, const element::ConfigurationFile &running,
                                          const InputFiles &files, const element::ReadOptions &options);

/// A commit with its element's profile and schema. Each file is read only once, so any of them may be a pipe.
class CommitInput {
 public:
  /// Without a running configuration's file that is empty. Throws element::InputError, or element::FileError for a file
  /// that cannot be read.
  explicit CommitInput(InputFiles files, const element::ReadOptions &options = {});

  /// The way back: from the candidate to the running configuration.
  CommitInput reversed() const;

  const InputFiles &files() const { return files_; }
  const report::InputSources &sources() const { return sources_; }
  const element::Profile &profile() const { return profile_; }
  const element::Schema &schema() const { return *schema_; }
  const element::Transaction &transaction() const { return *transaction_; }

 private:
  CommitInput() = default;

  InputFiles files_;
  report::InputSources sources_;
  element::Profile profile_;
  std::shared_ptr<const element::Schema> schema_;
  std::unique_ptr<const element::Transaction> transaction_;
};

}  // namespace cli

#endif
