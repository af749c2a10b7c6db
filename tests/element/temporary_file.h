#ifndef TESTS_ELEMENT_TEMPORARY_FILE_H
#define TESTS_ELEMENT_TEMPORARY_FILE_H

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

/// A file of this process with the given content, beside the test program in the build folder, gone with the object.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string &content = "")
      : path_(std::filesystem::read_symlink("/proc/self/exe").parent_path() /
              ("element-input-" + std::to_string(getpid()))) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TemporaryFile() { std::filesystem::remove(path_); }
  TemporaryFile(const TemporaryFile &) = delete;
  TemporaryFile &operator=(const TemporaryFile &) = delete;

  const std::filesystem::path &path() const { return path_; }

 private:
  std::filesystem::path path_;
};

#endif
