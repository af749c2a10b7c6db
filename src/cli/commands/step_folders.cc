#include "cli/commands/step_folders.h"

#include <fmt/format.h>

#include <system_error>

#include "cli/command_line/errors.h"
#include "cli/terminal/output_file.h"
#include "element/input/configuration_text.h"
#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/output/configuration_writer.h"

namespace cli {
namespace {

namespace fs = std::filesystem;
using element::InputFormat;

struct ConfigurationFile {
  std::string text;
  InputFormat format = InputFormat::xml;
};

/// As it was read; anew where only a wrapper stood around nothing.
ConfigurationFile copy_of(const element::ConfigurationText &read, const element::Tree &tree) {
  const bool is_blank = read.text.find_first_not_of(" \t\r\n") == std::string::npos;
  return {is_blank ? element::write_configuration(tree, read.format) : read.text, read.format};
}

std::string read_profile(const fs::path &file) {
  std::error_code unknown;
  if (fs::is_regular_file(file, unknown)) return element::read_input(file);
  throw element::InputError(fmt::format("{}: cannot be copied for each step; expected a regular file", file.string()));
}

void write(const fs::path &file, const std::string &text) {
  OutputFile output(file);
  output.write(text);
  output.publish();
}

void write(const fs::path &folder, const std::string &name, const ConfigurationFile &configuration) {
  write(folder / (name + (configuration.format == InputFormat::xml ? ".xml" : ".json")), configuration.text);
}

void make(const fs::path &folder) {
  std::error_code error;
  fs::create_directory(folder, error);
  if (error) throw OutputFileError(fmt::format("{}: cannot be written: {}", folder.string(), error.message()));
}

}  // namespace

std::vector<fs::path> write_step_folders(const fs::path &folder, const CommitInput &commit,
                                         const std::vector<element::Tree> &stages) {
  const std::string profile = read_profile(commit.files().element);
  const ConfigurationFile wanted = copy_of(commit.texts().candidate, commit.transaction().candidate);
  ConfigurationFile running = copy_of(commit.texts().running, commit.transaction().running);
  std::vector<fs::path> steps;
  for (std::size_t i = 0; i < stages.size(); ++i) {
    const bool is_last = i + 1 == stages.size();
    ConfigurationFile candidate =
        is_last ? wanted : ConfigurationFile{element::write_configuration(stages[i], wanted.format), wanted.format};
    const fs::path &step = steps.emplace_back(folder / std::to_string(i + 1));
    make(step);
    write(step / "element.json", profile);
    write(step, "running", running);
    write(step, "candidate", candidate);
    running = std::move(candidate);
  }
  return steps;
}

}  // namespace cli
