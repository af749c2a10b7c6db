#ifndef MAINTENANCE_COMMITS_COMMIT_FOLDER_H
#define MAINTENANCE_COMMITS_COMMIT_FOLDER_H

#include <filesystem>

#include "maintenance/commits/commit.h"

namespace maintenance {

/// Writes running.xml, candidate.xml and element.json into a folder, made if it is not there; files of these names are
/// replaced. `vpnval check` reads the same commit from them. Throws std::runtime_error, which names the file.
void write_commit_folder(const Commit &commit, const std::filesystem::path &folder);

/// Writes a text into a file, which it replaces. Throws std::runtime_error, which names the file.
void write_text(const std::filesystem::path &file, const std::string &text);

}  // namespace maintenance

#endif
