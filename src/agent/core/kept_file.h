#ifndef AGENT_CORE_KEPT_FILE_H
#define AGENT_CORE_KEPT_FILE_H

#include <filesystem>

namespace agent {

/// Puts a file that is complete in the place of another one, on the disk as well, so that a fall of power leaves the
/// one or the other. Throws std::system_error.
void replace_file(const std::filesystem::path &complete, const std::filesystem::path &place);

/// Keeps a copy of a file in another place, whole, or nothing there where there is no such file. Throws
/// std::system_error.
void keep_copy(const std::filesystem::path &file, const std::filesystem::path &place);

}  // namespace agent

#endif
