#include "cli/input/input_files.h"

#include <fmt/format.h>

#include <string>
#include <system_error>

#include "cli/command_line/errors.h"
#include "element/input/input_error.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

bool is_there(const fs::path &file) {
  std::error_code unknown;
  return fs::exists(file, unknown);
}

fs::path configuration_in(const fs::path &directory, const std::string &name) {
  fs::path xml = directory / (name + ".xml");
  fs::path json = directory / (name + ".json");
  if (!is_there(json)) return xml;
  if (!is_there(xml)) return json;
  throw element::InputError(
      fmt::format("{}: holds {}.xml and {}.json; one of them was expected", directory.string(), name, name));
}

InputFiles in_directory(const fs::path &directory) {
  std::error_code unknown;
  if (!fs::is_directory(directory, unknown)) {
    throw element::FileError(fmt::format("{}: is no directory that can be read", directory.string()));
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
  return files;
}

}  // namespace cli
