#ifndef CLI_INPUT_COMMIT_INPUT_H
#define CLI_INPUT_COMMIT_INPUT_H

#include <memory>

#include "cli/input/input_files.h"
#include "element/datastore/transaction.h"
#include "element/profile/profile.h"
#include "element/schema/schema.h"

namespace cli {

/// A commit read from its files, with everything that it stands on.
class CommitInput {
 public:
  /// Throws element::InputError.
  explicit CommitInput(InputFiles files);

  const InputFiles &files() const { return files_; }
  const element::Profile &profile() const { return profile_; }
  const element::Schema &schema() const { return schema_; }
  const element::Transaction &transaction() const { return *transaction_; }

 private:
  InputFiles files_;
  element::Profile profile_;
  element::Schema schema_;
  std::unique_ptr<const element::Transaction> transaction_;
};

}  // namespace cli

#endif
