#include "process/find_program.h"

#include <unistd.h>

#include <system_error>

namespace process {

namespace fs = std::filesystem;

std::optional<fs::path> find_program(std::string_view name, std::string_view search_path) {
  while (!search_path.empty()) {
    const std::size_t end = search_path.find(':');
    const fs::path file = fs::path(search_path.substr(0, end)) / name;
    std::error_code unknown;
    if (fs::is_regular_file(file, unknown) && access(file.c_str(), X_OK) == 0) return file;
    if (end == std::string_view::npos) break;
    search_path.remove_prefix(end + 1);
  }
  return std::nullopt;
}

}  // namespace process
