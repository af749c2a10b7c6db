#include "tests/maintenance/reports/example_commits.h"

#include <algorithm>
#include <filesystem>

#include "maintenance/commands/commit_source.h"
#include "source_dir.h"

namespace {

const std::string example_folder = SOURCE_DIR "/examples/";

const element::Schema &example_schema() {
  static const element::Schema schema;
  return schema;
}

}  // namespace

std::vector<std::string> example_names() {
  std::vector<std::string> names;
  for (const auto &entry : std::filesystem::directory_iterator(example_folder)) {
    if (std::filesystem::exists(entry.path() / "element.json")) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

maintenance::Commit example_commit(const std::string &name) {
  return maintenance::read_commit(example_schema(), example_folder + name);
}
