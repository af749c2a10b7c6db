#ifndef MAINTENANCE_COMMANDS_COMMIT_SOURCE_H
#define MAINTENANCE_COMMANDS_COMMIT_SOURCE_H

#include <string>
#include <vector>

#include "maintenance/commits/commit.h"

namespace maintenance {

/// The commit of a folder as `vpnval check` takes it. The schema must outlive it. Throws element::FileError,
/// element::InputError or cli::UsageError.
Commit read_commit(const element::Schema &schema, const std::string &folder);

/// The folder itself where it holds a commit, else the commits' folders in it, by name. Throws element::FileError or
/// element::InputError.
std::vector<std::string> commit_folders(const std::string &place);

}  // namespace maintenance

#endif
