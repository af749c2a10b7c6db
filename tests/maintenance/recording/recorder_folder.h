#ifndef TESTS_MAINTENANCE_RECORDING_RECORDER_FOLDER_H
#define TESTS_MAINTENANCE_RECORDING_RECORDER_FOLDER_H

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// A folder of a daemon with the recorder in the place of the library, gone with the object.
class RecorderFolder {
 public:
  /// `library` becomes the one that is recorded; an empty path leaves it out.
  explicit RecorderFolder(const std::filesystem::path &library, bool has_recordings = true);
  ~RecorderFolder();
  RecorderFolder(const RecorderFolder &) = delete;
  RecorderFolder &operator=(const RecorderFolder &) = delete;

  const std::filesystem::path &path() const { return path_; }
  /// What the daemon loads.
  std::filesystem::path library() const { return path_ / "libconfig_validate_vpn.so"; }
  std::filesystem::path recordings_folder() const { return path_ / "libconfig_validate_vpn.recordings"; }

  /// The recordings, in the order in which they were made.
  std::vector<std::filesystem::path> recordings() const;
  void remove_recordings() const;
  std::string status() const;

 private:
  std::filesystem::path path_;
};

/// What `ask` tells, line by line, in a process of its own: a library reads a card's limits once in a process. A
/// process that ends otherwise is a line as well.
std::vector<std::string> told_apart(const std::function<std::vector<std::string>()> &ask);

#endif
