#ifndef MAINTENANCE_RECONSTRUCTION_REBUILT_COMMIT_H
#define MAINTENANCE_RECONSTRUCTION_REBUILT_COMMIT_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/run/commit.h"
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
/// What it did not ask for is in neither. Throws std::exception where the recording holds what no element answers.
RebuiltCommit rebuild_commit(const recording::Recording &recording, const element::Schema &schema);

/// What the library in the file says to the commit at the recorded point: the answer with the recorded text, where the
/// point fires more than once and one has it; nothing where it does not fire. The process must have no
/// host::HostSession. Throws as host::Plugin and host::validate_commit do.
std::optional<host::PointVerdict> asked_about(const maintenance::Commit &commit, const recording::Recording &recording,
                                              const std::filesystem::path &plugin);

}  // namespace reconstruction

#endif
