#ifndef CLI_COMMANDS_STEP_FOLDERS_H
#define CLI_COMMANDS_STEP_FOLDERS_H

#include <filesystem>
#include <vector>

#include "cli/input/commit_input.h"

namespace cli {

/// Writes the steps from a commit's running configuration to its candidate as the folders 1, 2 ... of a folder that is
/// there, and returns their names. `stages` is what each step leaves. Written are the element's own nodes, in the
/// format of the candidate, and of the running configuration in the first folder. Throws OutputError, and
/// InputError where the element's profile cannot be read a second time.
std::vector<std::filesystem::path> write_step_folders(const std::filesystem::path &folder, const CommitInput &commit,
                                                      const std::vector<element::Tree> &stages);

}  // namespace cli

#endif
