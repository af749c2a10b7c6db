#ifndef PROCESS_FIND_PROGRAM_H
#define PROCESS_FIND_PROGRAM_H

#include <filesystem>
#include <optional>
#include <string_view>

namespace process {

/// The first executable file of this name in the directories of `search_path`, which are separated by colons as in
/// PATH. Nothing where there is none.
std::optional<std::filesystem::path> find_program(std::string_view name, std::string_view search_path);

}  // namespace process

#endif
