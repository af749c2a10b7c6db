#include "cli/commands/step_folders.h"

#include <fmt/format.h>

#include <system_error>

#include "cli/command_line/errors.h"
#include "cli/terminal/output_file.h"
#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/output/configuration_writer.h"

namespace cli {
namespace {

namespace fs = std::filesystem;
using element::InputFormat;

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

void write(const fs::path &folder, const std::string &name, const element::Tree &tree, InputFormat format) {
  const char *ending = format == InputFormat::xml ? ".xml" : ".json";
  write(folder / (name + ending), element::write_configuration(tree, format));
}

void make(const fs::path &folder) {
  std::error_code error;
  fs::create_directory(folder, error);
  if (error) throw OutputError(fmt::format("{}: cannot be written: {}", folder.string(), error.message()));
}

}  // namespace

std::vector<fs::path> write_step_folders(const fs::path &folder, const CommitInput &commit,
                                         const std::vector<element::Tree> &stages) {
  const std::string profile = read_profile(commit.files().element);
  const element::Tree *running = &commit.transaction().running;
  InputFormat running_format = commit.sources().running.format;
  const InputFormat format = commit.sources().candidate.format;
  std::vector<fs::path> steps;
  for (std::size_t i = 0; i < stages.size(); ++i) {
    const fs::path &step = steps.emplace_back(folder / std::to_string(i + 1));
    make(step);
    write(step / "element.json", profile);
    write(step, "running", *running, running_format);
    write(step, "candidate", stages[i], format);
    running = &stages[i];
    running_format = format;
  }
  return steps;
}

}  // namespace cli
