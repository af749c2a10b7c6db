#include "maintenance/commits/commit_folder.h"

#include <fmt/format.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

#include "element/output/configuration_writer.h"
#include "element/profile/made_profile.h"

namespace maintenance {

namespace fs = std::filesystem;

void write_text(const fs::path &file, const std::string &text) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << text;
  stream.close();
  if (!stream) throw std::runtime_error(fmt::format("{}: cannot be written", file.string()));
}

void write_commit_folder(const Commit &commit, const fs::path &folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw std::runtime_error(fmt::format("{}: cannot be made: {}", folder.string(), error.message()));
  write_text(folder / "element.json", element::write_profile(*commit.profile));
  write_text(folder / "running.xml", element::write_configuration(commit.running, element::InputFormat::xml));
  write_text(folder / "candidate.xml", element::write_configuration(commit.candidate, element::InputFormat::xml));
}

}  // namespace maintenance
