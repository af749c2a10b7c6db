#ifndef MAINTENANCE_RECORDER_TAPE_H
#define MAINTENANCE_RECORDER_TAPE_H

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "confd_dp.h"
#include "maintenance/hooks/handle_table.h"
#include "maintenance/recorder/known_limits.h"
#include "maintenance/recording/writer.h"

namespace recorder {

/// No recording is larger, in bytes.
inline constexpr std::size_t kLargestRecording = std::size_t{8} * 1024 * 1024;

/// What every recording of this process begins with.
struct Origin {
  std::string library;  ///< build id of the recorded library
  std::string version;  ///< of the recorder
};

/// The recording that is being made, in memory. There is one: the daemon calls the library from one thread at a time.
class Tape {
 public:
  /// Begins a recording of one call of `validate`.
  void start(const Origin &origin, const confd_trans_ctx &context, const confd_hkeypath_t *path,
             const confd_value_t *value);

  /// Ends it with what `validate` returned; none where an exception left the call.
  void stop(const std::int32_t *verdict);

  bool is_running() const { return is_running_; }

  /// Whether all that was asked and answered is in it.
  bool is_whole() const { return problem_ == nullptr && writer_.is_whole(); }
  /// Why it is not whole.
  const char *problem() const;

  /// The recording cannot be what happened; `problem` says why and lives for ever.
  void give_up(const char *problem) { problem_ = problem; }

  recording::Writer &writer() { return writer_; }
  hooks::HandleTable &handles() { return handles_; }
  KnownLimits &limits() { return limits_; }

  /// The last text that the library gave the agent in this recording.
  void set_message(std::string message) { message_ = std::move(message); }

  /// The library was told the time, in nanoseconds since 1970; or has extended its time-out at the time that it was
  /// told last. The header of the next recording has when that was.
  void note_time(std::int64_t now);
  void note_extension() { last_extension_ = last_time_; }

 private:
  void write_header(const Origin &origin, const confd_trans_ctx &context, const confd_hkeypath_t *path,
                    const confd_value_t *value);

  recording::Writer writer_{kLargestRecording};
  hooks::HandleTable handles_;
  KnownLimits limits_;
  std::optional<std::string> message_;
  std::optional<std::int64_t> last_time_;
  std::optional<std::int64_t> last_extension_;
  std::chrono::steady_clock::time_point began_;
  const char *problem_ = nullptr;
  bool is_running_ = false;
};

/// The process's own.
Tape &tape();

}  // namespace recorder

#endif
