#include "serve/folders.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include "serve/serve_error.h"

namespace serve {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path &path, int error) {
  throw ServeError(fmt::format("{}: cannot be written: {}", path.string(), std::generic_category().message(error)));
}

}  // namespace

RuntimeFolder::RuntimeFolder() {
  std::error_code unknown;
  std::string name = (fs::temp_directory_path(unknown) / "vpnval-serve-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) fail(name, errno);
  path_ = name;
}

RuntimeFolder::~RuntimeFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

fs::path RuntimeFolder::make(const std::string &name) const {
  std::error_code error;
  fs::create_directories(path_ / name, error);
  if (error) fail(path_ / name, error.value());
  return path_ / name;
}

StateFolder::StateFolder(fs::path path) : path_(std::move(path)) {
  std::error_code error;
  fs::create_directory(path_, error);
  if (error) fail(path_, error.value());
  const fs::path lock = path_ / "lock";
  lock_ = process::Descriptor(open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
  if (!lock_.is_open()) fail(lock, errno);
  if (flock(lock_.number(), LOCK_EX | LOCK_NB) == 0) return;
  throw ServeError(fmt::format("{}: another process serves this state; expected a folder of its own", path_.string()));
}

void write_file(const fs::path &file, const std::string &content) {
  std::ofstream stream(file, std::ios::binary);
  stream << content;
  stream.close();
  if (!stream) fail(file, errno);
}

}  // namespace serve
