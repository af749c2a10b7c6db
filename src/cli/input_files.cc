#include "cli/input_files.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "cli/errors.h"
#include "element/input_error.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

void require_readable(const fs::path &file) {
  std::error_code ignored;
  if (fs::is_directory(file, ignored)) {
    throw UnreadableFile(fmt::format("{}: is a directory; a file was expected", file.string()));
  }
  // Existence and permission alone are asked for: opening would use up a pipe.
  if (::access(file.c_str(), R_OK) != 0) {
    throw UnreadableFile(fmt::format("{}: {}", file.string(), std::generic_category().message(errno)));
  }
}

fs::path configuration_in(const fs::path &directory, const std::string &name) {
  const fs::path xml = directory / (name + ".xml");
  const fs::path json = directory / (name + ".json");
  if (!fs::exists(json)) return xml;
  if (!fs::exists(xml)) return json;
  throw element::InputError(
      fmt::format("{}: holds {}.xml and {}.json; one of them was expected", directory.string(), name, name));
}

InputFiles in_directory(const fs::path &directory) {
  if (!fs::is_directory(directory)) {
    throw UnreadableFile(fmt::format("{}: no such directory", directory.string()));
  }
  return {directory / "element.json", configuration_in(directory, "running"), configuration_in(directory, "candidate")};
}

}  // namespace

InputFiles find_input_files(const InputArguments &arguments) {
  const bool all_named = !arguments.element.empty() && !arguments.running.empty() && !arguments.candidate.empty();
  if (arguments.directory.empty() && !all_named) {
    throw UsageError("a directory was expected, or --element, --running and --candidate");
  }
  InputFiles files;
  if (!arguments.directory.empty()) files = in_directory(arguments.directory);
  if (!arguments.element.empty()) files.element = arguments.element;
  if (!arguments.running.empty()) files.running = arguments.running;
  if (!arguments.candidate.empty()) files.candidate = arguments.candidate;
  for (const fs::path &file : {files.element, files.running, files.candidate}) require_readable(file);
  return files;
}

}  // namespace cli
