#ifndef MAINTENANCE_RECORDER_REAL_LIBRARY_H
#define MAINTENANCE_RECORDER_REAL_LIBRARY_H

#include <cstdint>
#include <string>

#include "confd_dp.h"

namespace recorder {

/// The library that the recorder stands before: `libconfig_validate_vpn.real.so` in the recorder's own folder.
struct RealLibrary {
  std::int32_t (*lib_init)(void **) = nullptr;
  std::int32_t (*get_validation_point)(char *, std::int32_t) = nullptr;
  std::int32_t (*validate)(confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *) = nullptr;
  std::int32_t (*lib_finish)(void **) = nullptr;
  std::string build_id;
  bool is_loaded = false;    ///< with all of its entry points
  bool is_recorded = false;  ///< its calls come here, and there is a folder for recordings

  /// Loaded, and hooked where it can be, at the first call.
  static const RealLibrary &get();
};

/// Keeps the recording that was made of a call of `validate`, or says why there is none.
void keep_recording(const char *point, const std::int32_t *verdict);

}  // namespace recorder

#endif
