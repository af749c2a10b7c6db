// What the daemon looks up, under the names of the library that is recorded.

#include <cerrno>

#include "maintenance/recorder/real_library.h"
#include "maintenance/recorder/tape.h"

#define RECORDER_EXPORT extern "C" __attribute__((visibility("default")))

namespace recorder {

namespace {

/// Records one call of `validate`. Whatever goes wrong with the recording, the verdict is not touched.
class Recorded {
 public:
  Recorded(const RealLibrary &real, const confd_trans_ctx *context, const confd_hkeypath_t *path,
           const confd_value_t *value)
      : is_recorded_(real.is_recorded), point_(context->validate_opaque) {
    if (is_recorded_) tape().start({real.build_id, RECORDER_VERSION}, *context, path, value);
  }
  ~Recorded() {
    if (is_recorded_) keep();
  }
  Recorded(const Recorded &) = delete;
  Recorded &operator=(const Recorded &) = delete;

  void answered(std::int32_t verdict) {
    verdict_ = verdict;
    is_answered_ = true;
  }

 private:
  void keep() noexcept try {
    const int error = errno;
    const std::int32_t *verdict = is_answered_ ? &verdict_ : nullptr;
    tape().stop(verdict);
    keep_recording(point_, verdict);
    errno = error;
  } catch (...) {
  }

  bool is_recorded_;
  bool is_answered_ = false;
  std::int32_t verdict_ = 0;
  const char *point_;
};

}  // namespace

}  // namespace recorder

using recorder::RealLibrary;

RECORDER_EXPORT std::int32_t lib_init(void **state) {
  const RealLibrary &real = RealLibrary::get();
  return real.is_loaded ? real.lib_init(state) : CONFD_ERR;
}

RECORDER_EXPORT std::int32_t get_validation_point(char *name, std::int32_t length) {
  const RealLibrary &real = RealLibrary::get();
  return real.is_loaded ? real.get_validation_point(name, length) : CONFD_ERR;
}

RECORDER_EXPORT std::int32_t validate(confd_trans_ctx *tctx, confd_hkeypath_t *kp, confd_value_t *newval) {
  const RealLibrary &real = RealLibrary::get();
  if (!real.is_loaded) return CONFD_ERR;
  recorder::Recorded recorded(real, tctx, kp, newval);
  const std::int32_t verdict = real.validate(tctx, kp, newval);
  recorded.answered(verdict);
  return verdict;
}

RECORDER_EXPORT std::int32_t lib_finish(void **state) {
  const RealLibrary &real = RealLibrary::get();
  return real.is_loaded ? real.lib_finish(state) : CONFD_ERR;
}
