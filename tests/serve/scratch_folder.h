#ifndef TESTS_SERVE_SCRATCH_FOLDER_H
#define TESTS_SERVE_SCRATCH_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

/// An empty folder, gone with the object.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vpnval-scratch-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
    path_ = name;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder &) = delete;
  ScratchFolder &operator=(const ScratchFolder &) = delete;

  std::string file(const std::string &name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

#endif
