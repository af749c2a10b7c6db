#include "cli/terminal/output_folder.h"

#include <fmt/format.h>
#include <unistd.h>

#include <system_error>
#include <utility>

#include "cli/command_line/errors.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

fs::path without_trailing_slash(fs::path path) { return path.has_filename() ? path : path.parent_path(); }

}  // namespace

OutputFolder::OutputFolder(fs::path folder) : folder_(without_trailing_slash(std::move(folder))) {
  std::error_code error;
  const bool is_there = fs::exists(fs::symlink_status(folder_, error));
  if (is_there && (!fs::is_directory(fs::symlink_status(folder_, error)) || !fs::is_empty(folder_, error))) {
    throw OutputError(fmt::format("{}: something stands there; expected an empty folder or none", folder_.string()));
  }
  fs::path part = folder_;
  part += fmt::format(".part-{}", getpid());
  error.clear();
  if (!fs::create_directory(part, error)) fail(error ? error : std::make_error_code(std::errc::file_exists));
  part_ = std::move(part);
}

OutputFolder::~OutputFolder() {
  std::error_code ignored;
  if (!part_.empty()) fs::remove_all(part_, ignored);
}

void OutputFolder::publish() {
  std::error_code error;
  fs::rename(part_, folder_, error);
  if (error) fail(error);
  part_.clear();
}

void OutputFolder::fail(const std::error_code &error) const {
  throw OutputError(fmt::format("{}: cannot be written: {}", folder_.string(), error.message()));
}

}  // namespace cli
