#ifndef MAINTENANCE_COMMANDS_COMMIT_SOURCE_H
#define MAINTENANCE_COMMANDS_COMMIT_SOURCE_H

#include <string>
#include <vector>

#include "maintenance/commits/commit.h"
#include "maintenance/reconstruction/rebuilt_commit.h"

namespace maintenance {

/// The commit of a folder as `vpnval check` takes it, or what a recording knows of one. The schema must outlive it.
/// Throws element::FileError, element::InputError or cli::UsageError.
Commit read_commit(const element::Schema &schema, const std::string &place);

/// The place names a file, which is to be a recording.
bool is_recording(const std::string &place);

/// What a recording, read from `file`, knows of a commit. Throws element::InputError where that makes none.
reconstruction::RebuiltCommit rebuilt_commit(const recording::Recording &recording, const element::Schema &schema,
                                             const std::string &file);

/// The folder itself where it holds a commit, else the commits' folders in it, by name. Throws element::FileError or
/// element::InputError.
std::vector<std::string> commit_folders(const std::string &place);

}  // namespace maintenance

#endif
