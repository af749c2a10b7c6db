#include "maintenance/commands/commit_source.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>

#include "cli/input/commit_input.h"
#include "cli/input/input_files.h"
#include "element/input/input_error.h"
#include "maintenance/commands/recording_file.h"

namespace maintenance {
namespace {

namespace fs = std::filesystem;

bool is_commit(const fs::path &folder) {
  std::error_code unknown;
  return fs::exists(folder / "element.json", unknown);
}

}  // namespace

bool is_recording(const std::string &place) {
  std::error_code unknown;
  return std::filesystem::is_regular_file(place, unknown);
}

reconstruction::RebuiltCommit rebuilt_commit(const recording::Recording &recording, const element::Schema &schema,
                                             const std::string &file) {
  try {
    return reconstruction::rebuild_commit(recording, schema);
  } catch (const std::bad_alloc &) {
    throw;
  } catch (const std::exception &error) {
    throw element::InputError(file + ": what it knows makes no commit: " + error.what());
  }
}

Commit read_commit(const element::Schema &schema, const std::string &place) {
  if (is_recording(place)) return rebuilt_commit(read_recording(place), schema, place).commit;
  cli::InputArguments arguments;
  arguments.directory = place;
  const cli::InputFiles files = cli::find_input_files(arguments);
  auto profile = std::make_shared<const element::Profile>(element::read_profile(files.element));
  const element::ConfigurationFile running = element::read_configuration_file(schema, files.running);
  return {std::move(profile), running.tree, cli::read_candidate(schema, running, files, {}).tree};
}

std::vector<std::string> commit_folders(const std::string &place) {
  if (is_commit(place)) return {place};
  std::vector<std::string> folders;
  std::error_code error;
  for (const auto &entry : fs::directory_iterator(place, error)) {
    if (is_commit(entry.path())) folders.push_back(entry.path().string());
  }
  if (error) throw element::FileError(fmt::format("{}: cannot be read: {}", place, error.message()));
  if (folders.empty()) {
    throw element::InputError(
        fmt::format("{}: no commit; expected a folder with element.json, or one of such folders", place));
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

}  // namespace maintenance
