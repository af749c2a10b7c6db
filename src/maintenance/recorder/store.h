#ifndef MAINTENANCE_RECORDER_STORE_H
#define MAINTENANCE_RECORDER_STORE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace recorder {

/// At most so many recordings are kept, and at most so many bytes of them. Where one must go, it is the oldest of
/// accepted calls as long as there are more of these than a quarter; otherwise the oldest of all.
inline constexpr std::size_t kMostRecordings = 200;
inline constexpr std::uint64_t kMostBytes = std::uint64_t{64} * 1024 * 1024;

/// The folder of the recordings. What is written belongs to the process; a full disk costs the recording alone.
class Store {
 public:
  /// Looks at what earlier processes left in the folder. A folder that does not exist is not made.
  explicit Store(std::string folder);

  bool exists() const { return exists_; }
  const std::string &folder() const { return folder_; }

  /// Writes the bytes under the next number as `NUMBER-PROCESS-POINT-VERDICT.vpnrec`: first under another name, then
  /// renamed. Returns what went wrong, empty where nothing did.
  std::string keep(std::string_view bytes, std::string_view point, std::string_view verdict);

  /// Replaces the file `status`, which tells what the recorder last had to say.
  void write_status(const std::string &text) const;

 private:
  struct Kept {
    std::string name;
    std::uint64_t size = 0;
  };

  void find_kept();
  void make_room(std::uint64_t size);
  void remove(std::size_t index);
  std::string write(const std::string &file, std::string_view bytes) const;

  std::string folder_;
  bool exists_ = false;
  std::uint64_t next_ = 1;
  std::uint64_t bytes_ = 0;
  std::vector<Kept> kept_;  ///< the oldest first
};

}  // namespace recorder

#endif
