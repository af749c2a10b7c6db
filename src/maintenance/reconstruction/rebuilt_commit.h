#ifndef MAINTENANCE_RECONSTRUCTION_REBUILT_COMMIT_H
#define MAINTENANCE_RECONSTRUCTION_REBUILT_COMMIT_H

#include <string>
#include <vector>

#include "maintenance/commits/commit.h"
#include "maintenance/recording/recording.h"

namespace reconstruction {

struct RebuiltCommit {
  maintenance::Commit commit;
  /// What the recording does not know and a commit needs, one sentence each: names of things of which it knows the
  /// number alone, values that a change had before.
  std::vector<std::string> made_up;
};

/// A commit of what the library read: the candidate from what it read of it; the running configuration from the same
/// with the changes taken back that it was told of, and from what it read there; the profile from the card's answers.
/// What it did not ask for is in neither.
RebuiltCommit rebuild_commit(const recording::Recording &recording, const element::Schema &schema);

}  // namespace reconstruction

#endif
