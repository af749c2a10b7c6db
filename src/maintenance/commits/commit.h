#ifndef MAINTENANCE_COMMITS_COMMIT_H
#define MAINTENANCE_COMMITS_COMMIT_H

#include <memory>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"

namespace maintenance {

/// A commit as an operator makes it, and the element that it is made on.
struct Commit {
  std::shared_ptr<const element::Profile> profile;  ///< never null
  element::Tree running;                            ///< operator's nodes alone, sorted, as is the candidate
  element::Tree candidate;
};

}  // namespace maintenance

#endif
