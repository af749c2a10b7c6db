#include "agent/core/kept_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "process/descriptor.h"

namespace agent {
namespace {

void sync(const std::filesystem::path &path) {
  const process::Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.is_open() || fsync(file.number()) != 0) {
    throw std::system_error(errno, std::generic_category(), path.string());
  }
}

}  // namespace

void replace_file(const std::filesystem::path &complete, const std::filesystem::path &place) {
  sync(complete);
  if (std::rename(complete.c_str(), place.c_str()) != 0) {
    throw std::system_error(errno, std::generic_category(), place.string());
  }
  sync(place.parent_path());
}

void keep_copy(const std::filesystem::path &file, const std::filesystem::path &place) {
  namespace fs = std::filesystem;
  if (!fs::exists(file)) {
    fs::remove(place);
    return sync(place.parent_path());
  }
  fs::path part = place;
  part += ".part";
  fs::copy_file(file, part, fs::copy_options::overwrite_existing);
  replace_file(part, place);
}

}  // namespace agent
