#ifndef SERVE_FOLDERS_H
#define SERVE_FOLDERS_H

#include <filesystem>
#include <string>

#include "process/descriptor.h"

namespace serve {

/// A folder of this process among the temporary ones, which only its user can look into; gone with the object.
class RuntimeFolder {
 public:
  /// Throws ServeError.
  RuntimeFolder();
  ~RuntimeFolder();
  RuntimeFolder(const RuntimeFolder &) = delete;
  RuntimeFolder &operator=(const RuntimeFolder &) = delete;

  const std::filesystem::path &path() const { return path_; }

  /// Makes a folder in it.
  std::filesystem::path make(const std::string &name) const;

 private:
  std::filesystem::path path_;
};

/// Where an element's state lies from one run to the next. One process at a time.
class StateFolder {
 public:
  /// Makes the folder where it is not there. Throws ServeError, also where another process serves it.
  explicit StateFolder(std::filesystem::path path);

  std::filesystem::path running() const { return path_ / "running.xml"; }
  std::filesystem::path startup() const { return path_ / "startup.xml"; }
  std::filesystem::path host_key() const { return path_ / "host_key"; }

 private:
  std::filesystem::path path_;
  process::Descriptor lock_;
};

/// Throws ServeError.
void write_file(const std::filesystem::path &file, const std::string &content);

}  // namespace serve

#endif
