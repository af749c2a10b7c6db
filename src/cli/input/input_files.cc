#include "cli/input/input_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <system_error>
#include <vector>

#include "cli/command_line/errors.h"
#include "element/input/input_error.h"
#include "element/input/input_file.h"

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
  InputFiles files{
      directory / "element.json", configuration_in(directory, "running"), configuration_in(directory, "candidate"), {}};
  const fs::path edit = configuration_in(directory, "edit");
  if (!is_there(edit)) return files;
  if (is_there(files.candidate)) {
    throw element::InputError(fmt::format("{}: holds {} and {}; one of them was expected", directory.string(),
                                          files.candidate.filename().string(), edit.filename().string()));
  }
  files.edits = {edit};
  return files;
}

void require_one_standard_input(const InputArguments &arguments) {
  std::vector<std::string> names{arguments.element, arguments.running, arguments.candidate};
  names.insert(names.end(), arguments.edits.begin(), arguments.edits.end());
  if (std::count(names.begin(), names.end(), element::kStandardInput) <= 1) return;
  throw UsageError("- is given more than once; expected it once, for standard input can be read once alone");
}

void take_edits(const InputArguments &arguments, InputFiles &files) {
  if (!arguments.candidate.empty() && !arguments.edits.empty()) {
    throw UsageError("--edit beside --candidate; expected one of them");
  }
  if (!arguments.candidate.empty()) files.edits.clear();
  if (!arguments.edits.empty()) files.edits.assign(arguments.edits.begin(), arguments.edits.end());
  if (!files.edits.empty()) files.candidate = files.edits.back();
}

}  // namespace

InputFiles find_configurations(const InputArguments &arguments) {
  require_one_standard_input(arguments);
  const bool has_change = !arguments.candidate.empty() || !arguments.edits.empty();
  if (arguments.directory.empty() && (arguments.running.empty() || !has_change)) {
    throw UsageError("a directory was expected, or --running and --candidate or --edit");
  }
  InputFiles files;
  if (!arguments.directory.empty()) files = in_directory(arguments.directory);
  if (!arguments.running.empty()) files.running = arguments.running;
  if (!arguments.candidate.empty()) files.candidate = arguments.candidate;
  take_edits(arguments, files);
  return files;
}

InputFiles find_input_files(const InputArguments &arguments) {
  const bool has_change = !arguments.candidate.empty() || !arguments.edits.empty();
  const bool all_named = !arguments.element.empty() && !arguments.running.empty() && has_change;
  if (arguments.directory.empty() && !all_named) {
    throw UsageError("a directory was expected, or --element, --running and --candidate or --edit");
  }
  InputFiles files = find_configurations(arguments);
  if (!arguments.element.empty()) files.element = arguments.element;
  return files;
}

}  // namespace cli
