#ifndef HOST_RUN_PLUGIN_H
#define HOST_RUN_PLUGIN_H

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

struct confd_trans_ctx;
struct confd_hkeypath;
struct confd_value;

namespace host {

/// The library cannot be used; what() names the file and the symbol or name that is at fault.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A loaded validation library, initialised. The library stays in the process when this goes: its static state and
/// its frames in a leak report outlive it.
class Plugin {
 public:
  /// Loads the file, looks up the four entry points, calls lib_init and checks the name of its validation point. The
  /// seam must be active, for lib_init reads the card's limits. Throws LoadError.
  explicit Plugin(const std::filesystem::path &file);

  /// Calls lib_finish.
  ~Plugin();
  Plugin(const Plugin &) = delete;
  Plugin &operator=(const Plugin &) = delete;

  const std::filesystem::path &file() const { return file_; }

  /// The GNU build id in hexadecimal, "none" where the file carries none.
  const std::string &build_id() const { return build_id_; }

  /// Calls the library's validate function and returns what it returned.
  std::int32_t validate(confd_trans_ctx *context, confd_hkeypath *path, confd_value *value) const;

 private:
  std::filesystem::path file_;
  std::string build_id_;
  void *library_ = nullptr;
  void *state_ = nullptr;
  std::int32_t (*validate_)(confd_trans_ctx *, confd_hkeypath *, confd_value *) = nullptr;
  std::int32_t (*finish_)(void **) = nullptr;
};

}  // namespace host

#endif
